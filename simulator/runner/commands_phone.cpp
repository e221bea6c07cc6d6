// Commands for the phone itself: buttons, lock, preferences, appearance, restarts, the settings pane and the address
// book.
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/contacts/address_book.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/restart.hpp"
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

std::optional<std::string> text(const Json& command, const char* key) {
  return command.contains(key) ? std::optional(command[key].get<std::string>()) : std::nullopt;
}

Json restart(const Json& command) {
  if (const auto error = requestRestart({text(command, "device"), text(command, "system"), text(command, "locale")}))
    throw CommandError(*error);
  return nullptr;
}

Json requestTestBanner(const Json&) {
  const std::size_t before = springboard::bannerCount();
  if (!postTestBannerRequest())
    throw CommandError("the request was posted, but the notification daemon did not deliver it within 5 seconds");
  return springboard::bannerCount() == before ? Json() : Json{{"controller", springboard::bannerCount()}};
}

Json useContacts(const Json& command) {
  if (const auto failure = contacts::useAddressBook(command["path"].get<std::string>()))
    throw CommandError("the address book was not changed: " + *failure);
  return nullptr;
}

}  // namespace

std::span<const Command> phoneCommands() {
  static constexpr Field pressFields[] = {{"type", field::integer, Presence::Required},
                                          {"force", field::integer, Presence::Required}};
  static constexpr Field setFields[] = {{"key", field::nonEmptyText, Presence::Required},
                                        {"value", field::preference, Presence::Required}};
  static constexpr Field appearanceFields[] = {{"style", style, Presence::Required}};
  static constexpr Field restartFields[] = {
      {"device", field::nonEmptyText}, {"system", field::nonEmptyText}, {"locale", field::nonEmptyText}};
  static constexpr Field contactsFields[] = {{"path", field::nonEmptyText, Presence::Required}};
  static constexpr Command commands[] = {
      {"press", pressFields, &press,
       "send a button event: type 101 is home, 102 volume up, 103 volume down; a force of 0 releases the button"},
      {"lock", {}, &lock, "show the lock screen"},
      {"grabber",
       {},
       &pullGrabber,
       "make the grabber's dismissal gesture; \"dismissed\" reports whether the system recognized a dismissal"},
      {"set", setFields, &setPreference, "store a preference as the settings pane does; null removes it"},
      {"appearance", appearanceFields, &switchAppearance, "switch the system appearance to light or dark"},
      {"restart", restartFields, &restart,
       "restart a live phone, with another device, system version or language if they are specified"},
      {"testbanner", {}, &requestTestBanner, "request a test banner as the settings pane does; returns its controller"},
      {"contacts", contactsFields, &useContacts, "use this vCard file as the address book"},
  };
  return commands;
}

}  // namespace runner
