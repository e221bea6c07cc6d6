// The settings pane, opened in the process of a simulated phone that runs Brim.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/ns_number.hpp"
#include "simulator/settings/list_controller.hpp"
#include "tests/library/phone.hpp"
#include "tests/settings_pane/pane_files.hpp"

namespace test {

// Loads the executable of a bundle, and returns its principal class. Null if it has none.
inline Class loadPane(const std::filesystem::path& bundle) {
  NSBundle* const opened = NSBundle::bundleWithPath(base::stringOf(bundle.string()));
  EXPECT_TRUE((objc::send<bool, "load">(opened)));
  return reinterpret_cast<Class>(objc_getClass("BrimListController"));
}

class OpenedPane {
 public:
  explicit OpenedPane(Setup setup = {}, const std::filesystem::path& bundle = paneBundle()) : phone(std::move(setup)) {
    settings_application::registerClasses();
    const Class page = loadPane(bundle);
    EXPECT_NE(page, nullptr);
    controller = objc::adopt(objc::send<PSListController*, "init">(objc::send<id, "alloc">(page)));
  }

  // The specifier with this value of a property. nil if there is none.
  PSSpecifier* specifier(const std::string& property, const std::string& value) const {
    const NSArray* const all = controller->specifiers();
    for (NSUInteger index = 0; index < all->count(); ++index) {
      auto* const each = static_cast<PSSpecifier*>(all->objectAtIndex(index));
      if (base::jsonOf(each->propertyForKey(base::stringOf(property))) == Json(value)) return each;
    }
    ADD_FAILURE() << "no specifier has the " << property << " " << value;
    return nullptr;
  }
  PSSpecifier* setting(const std::string& key) const { return specifier("key", key); }

  // The value that Brim has read.
  Json valueInBrim(const std::string& key) { return phone.run({{"do", "settings"}}).at("settings").at(key); }
  // The value in the preferences file; null if there is none.
  Json storedValue(const std::string& key) const {
    return propertyList(phone.root() / "var/mobile/Library/GNUstep/Defaults/com.marrowgate.brimprefs.plist")
        .value(key, Json());
  }

  Phone phone;
  objc::Ref<PSListController> controller;
};

}  // namespace test
