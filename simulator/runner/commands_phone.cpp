// Commands that reach the phone beside its screen: buttons, lock, preferences, appearance, and the settings pane.
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/contacts/address_book.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/test_banner_request.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/shell/grabber.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "simulator/springboard/shell/springboard_application.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace runner {

namespace {

constexpr const char* preferencesDomain = "com.marrowgate.brimprefs";

constexpr const char* styles[] = {"light", "dark"};
const FieldType style = {"light or dark", [](const Json& value) { return isOneOf(value, styles); }};

Json press(const Json& command) {
  springboard::pressButton(command["type"].get<NSInteger>(), static_cast<double>(command["force"].get<NSInteger>()));
  return nullptr;
}

Json lock(const Json&) {
  SBLockScreenManager::sharedInstance()->lock();
  return nullptr;
}

Json pullGrabber(const Json&) { return {{"dismissed", SBGrabberTongue::sharedInstance()->dismiss(0, true)}}; }

Json setPreference(const Json& command) {
  const Json& value = command["value"];
  const auto failure = foundation::writePreference(preferencesDomain, command["key"].get<std::string>(),
                                                   value.is_null() ? nullptr : base::objectOf(value));
  if (failure) throw CommandError("the preference could not be written: " + *failure);
  return nullptr;
}

Json switchAppearance(const Json& command) {
  uikit::switchAppearance(command["style"] == "dark" ? UIUserInterfaceStyle::Dark : UIUserInterfaceStyle::Light);
  return nullptr;
}

Json requestTestBanner(const Json&) {
  const std::size_t before = springboard::bannerCount();
  if (!postTestBannerRequest()) throw CommandError("the request was posted, but no notification daemon delivered it");
  return springboard::bannerCount() == before ? Json() : Json{{"controller", springboard::bannerCount()}};
}

Json useContacts(const Json& command) {
  if (const auto failure = contacts::useAddressBook(command["path"].get<std::string>()))
    throw CommandError("the address book stays as it was: " + *failure);
  return nullptr;
}

}  // namespace

std::span<const Command> phoneCommands() {
  static constexpr Field pressFields[] = {{"type", field::integer, Need::Required},
                                          {"force", field::integer, Need::Required}};
  static constexpr Field setFields[] = {{"key", field::nonEmptyText, Need::Required},
                                        {"value", field::preference, Need::Required}};
  static constexpr Field appearanceFields[] = {{"style", style, Need::Required}};
  static constexpr Field contactsFields[] = {{"path", field::nonEmptyText, Need::Required}};
  static constexpr Command commands[] = {
      {"press", pressFields, &press, "a physical button event; 101 with a force of 0 lets the home button go"},
      {"lock", {}, &lock, "the lock screen comes up"},
      {"grabber",
       {},
       &pullGrabber,
       "the grabber's gesture; answers in \"dismissed\" whether the system took it for a dismissal"},
      {"set", setFields, &setPreference, "the preferences domain is written from outside; null removes the key"},
      {"appearance", appearanceFields, &switchAppearance, "the system appearance becomes light or dark"},
      {"testbanner", {}, &requestTestBanner, "the settings pane asks for a test banner; answers its controller"},
      {"contacts", contactsFields, &useContacts, "the address book is this vCard file from now on"},
  };
  return commands;
}

}  // namespace runner
