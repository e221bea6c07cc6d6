// Tests of the class of the page, which is loaded from the bundle as in the Settings application.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "simulator/foundation/run_loop.hpp"
#include "tests/settings_pane/opened_pane.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;

using settings_application::change;
using settings_application::tap;
using test::Json;
using test::OpenedPane;

// A copy of the bundle, with another page if one is given.
class BundleCopy {
 public:
  BundleCopy() { fs::copy(test::paneBundle(), path(), fs::copy_options::recursive); }
  explicit BundleCopy(const std::string& page) : BundleCopy() { std::ofstream(path() / "Root.plist") << page; }
  fs::path path() const { return folder_.path() / "BrimPreferences.bundle"; }

 private:
  test::TemporaryFolder folder_;
};

std::vector<std::string> postedNames(OpenedPane& pane) {
  std::vector<std::string> names;
  for (const Json& event : test::eventsOf(pane.phone.log(), "distributed")) names.push_back(event.at("name"));
  return names;
}

TEST(ListController, CreatesASpecifierForEachItem) {
  const OpenedPane pane;
  EXPECT_EQ(pane.controller->specifiers()->count(), test::paneItems().size());
}

TEST(ListController, CreatesTheSpecifiersOnce) {
  const OpenedPane pane;
  NSArray* const specifiers = pane.controller->specifiers();
  EXPECT_EQ(pane.controller->specifiers(), specifiers);
  EXPECT_EQ(objc::state(pane.controller.get()).specifiers.get(), specifiers);
}

// The platform clears the specifiers to update the page.
TEST(ListController, CreatesTheSpecifiersAgainAfterTheyWereCleared) {
  const OpenedPane pane;
  const objc::Ref<NSArray> previous = objc::retain(pane.controller->specifiers());
  objc::state(pane.controller.get()).specifiers = nullptr;
  EXPECT_NE(pane.controller->specifiers(), previous.get());
  EXPECT_EQ(pane.controller->specifiers()->count(), previous->count());
}

TEST(ListController, ReleasesTheSpecifiersWithThePage) {
  OpenedPane pane;
  objc::Weak<NSArray> specifiers;
  {
    const objc::AutoreleasePool pool;
    specifiers = pane.controller->specifiers();
    EXPECT_NE(specifiers.lock(), nullptr);
    pane.controller = nullptr;
  }
  EXPECT_EQ(specifiers.lock(), nullptr);
}

TEST(ListController, ShowsTheTextsInTheLanguageOfThePhone) {
  test::Setup setup;
  setup.options.locale = "de_DE";
  const OpenedPane pane(setup);
  EXPECT_EQ(base::textOf(pane.setting("enabled")->name()), "Brim aktivieren");
  EXPECT_EQ(base::textOf(pane.setting("enableSlack")->name()), "Slack");
  EXPECT_EQ(base::jsonOf(pane.setting("textAlignment")->propertyForKey("validTitles"_ns)),
            Json({"Automatisch", "Links", "Zentriert", "Rechts"}));
}

TEST(ListController, SliderStoresTheNearestInteger) {
  OpenedPane pane;
  for (const auto& [position, expected] : {std::pair(21.5, 22), {21.4, 21}, {0.2, 0}, {0.0, 0}, {60.0, 60}}) {
    change(pane.setting("containerCornerRadius"), NSNumber::numberWithDouble(position));
    EXPECT_EQ(pane.storedValue("containerCornerRadius").dump(), std::to_string(expected)) << position;
  }
}

TEST(ListController, RoundsNumbersOfSinglePrecision) {
  OpenedPane pane;
  change(pane.setting("appSize"), objc::send<NSNumber*, "numberWithFloat:">(NSNumber::classObject(), 33.7F));
  EXPECT_EQ(pane.storedValue("appSize").dump(), "34");
}

TEST(ListController, SwitchStoresABoolean) {
  OpenedPane pane;
  for (const bool isOn : {false, true}) {
    change(pane.setting("backgroundBlur"), NSNumber::numberWithBool(isOn));
    EXPECT_EQ(pane.storedValue("backgroundBlur"), Json(isOn));
  }
}

TEST(ListController, ListStoresItsValue) {
  OpenedPane pane;
  auto* const values = static_cast<NSArray*>(pane.setting("containerColor")->propertyForKey("validValues"_ns));
  change(pane.setting("containerColor"), values->objectAtIndex(3));
  EXPECT_EQ(pane.storedValue("containerColor").dump(), "3");
}

// A value that the control can have, other than the default.
Json otherValue(const Json& item) {
  if (item.at("default").is_boolean()) return !item.at("default").get<bool>();
  if (item.contains("max")) return item.at("max");
  const Json& values = item.at("validValues");
  return values.back() == item.at("default") ? values.front() : values.back();
}

TEST(ListController, BrimReadsEachChangedSettingImmediately) {
  OpenedPane pane;
  for (const Json& item : test::paneSettings()) {
    const std::string key = item.at("key");
    const Json other = otherValue(item);
    ASSERT_EQ(pane.valueInBrim(key), item.at("default")) << key;
    change(pane.setting(key), base::objectOf(item.contains("max") ? Json(other.get<double>() - 0.3) : other));
    EXPECT_EQ(pane.valueInBrim(key), other) << key;
  }
}

TEST(ListController, PostsANotificationAfterAChange) {
  OpenedPane pane;
  postedNames(pane);
  change(pane.setting("tinyBanner"), NSNumber::numberWithBool(true));
  EXPECT_EQ(postedNames(pane), (std::vector<std::string>{"com.marrowgate.brimprefs/ReloadPrefs"}));
}

TEST(ListController, ShowsTheStoredValueOrTheDefault) {
  test::Setup setup;
  setup.settings = {{"maxLineCount", 7}};
  const OpenedPane pane(setup);
  const auto shown = [&](const char* key) {
    return base::jsonOf(pane.controller->readPreferenceValue(pane.setting(key)));
  };
  EXPECT_EQ(shown("maxLineCount"), 7);
  EXPECT_EQ(shown("appSize"), 40);
  EXPECT_EQ(shown("showButtons"), false);
}

TEST(ListController, ButtonShowsATestBanner) {
  OpenedPane pane;
  postedNames(pane);
  tap(pane.specifier("cell", "PSButtonCell"));
  std::vector<Json> published;
  for (int attempt = 0; attempt < 50 && published.empty(); ++attempt) {
    foundation::pumpRunLoopAndMainQueue(0.1);
    published = test::eventsOf(pane.phone.log(), "publish");
  }
  ASSERT_EQ(published.size(), 1U);
  pane.phone.wait(1);
  EXPECT_EQ(pane.phone.view(1, "bodyLabel").at("text"), "Test notification");
}

TEST(ListController, InvalidPageIsEmpty) {
  const BundleCopy bundle("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>items</key><array>");
  const OpenedPane pane({}, bundle.path());
  EXPECT_EQ(pane.controller->specifiers()->count(), 0U);
  EXPECT_EQ(pane.controller->specifiers()->count(), 0U);
}

TEST(ListController, PageOfAnotherBundleIsReadFromThatBundle) {
  const BundleCopy bundle("{ items = ({ cell = PSGroupCell; }); }");
  const OpenedPane pane({}, bundle.path());
  EXPECT_EQ(pane.controller->specifiers()->count(), 1U);
}

TEST(ListController, IsRegisteredOnceByTwoCopiesOfTheBundle) {
  const OpenedPane pane;
  const Class page = object_getClass(objc::detail::toId(pane.controller.get()));
  const IMP implementation = class_getMethodImplementation(page, objc::selector<"specifiers">());
  NSArray* const specifiers = pane.controller->specifiers();
  const BundleCopy copy;
  // Foundation does not load the executable of a second bundle with the same identifier.
  EXPECT_NE(dlopen((copy.path() / "BrimPreferences").c_str(), RTLD_NOW | RTLD_LOCAL), nullptr) << dlerror();
  EXPECT_EQ(reinterpret_cast<Class>(objc_getClass("BrimListController")), page);
  EXPECT_EQ(class_getMethodImplementation(page, objc::selector<"specifiers">()), implementation);
  EXPECT_EQ(pane.controller->specifiers(), specifiers);
}

TEST(ListController, IsNotRegisteredWithoutTheSettingsFramework) {
  const test::Phone phone;
  EXPECT_EQ(test::loadPane(test::paneBundle()), nullptr);
}

TEST(ListController, IsNotRegisteredIfTheSettingsFrameworkHasAnotherLayout) {
  const test::Phone phone;
  objc::defineClass<PSListController>({});
  EXPECT_EQ(test::loadPane(test::paneBundle()), nullptr);
}

}  // namespace
