// Presents notifications that have actions, and reads from the log which actions the library executed.
#pragma once

#include <string>
#include <vector>

#include "tests/library/phone.hpp"

namespace test {

using Identifiers = std::vector<std::string>;

inline constexpr const char* snoozeIdentifier = "MTAlarmSnoozeAction";
inline constexpr const char* closeIdentifier = "com.apple.UNNotificationCloseActionIdentifier";
inline constexpr const char* clearIdentifier = "com.apple.UNNotificationDismissActionIdentifier";

enum class CloseAction { Included, Omitted };

// Presents a notification that is not dismissed automatically, waits until its banner has appeared, and empties the
// log. Returns the controller's number.
inline int presentAndClearLog(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"title", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", false}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  phone.log();
  return controller;
}

inline Json action(const char* identifier, const char* key = "key") {
  return {{"key", key}, {"identifier", identifier}};
}

inline int presentAlarm(Phone& phone, const Json& actions, CloseAction close = CloseAction::Included) {
  return presentAndClearLog(
      phone, {{"section", "com.apple.mobiletimer"}, {"close", close == CloseAction::Included}, {"actions", actions}});
}

// The identifiers of the executed actions, in the order of their execution.
inline Identifiers executedActions(const Json& events) {
  Identifiers found;
  for (const Json& event : eventsOf(events, "action")) found.push_back(event.at("identifier"));
  return found;
}

// The number of events that make the phone vibrate: haptics and sounds.
inline std::size_t hapticCount(const Json& events) {
  return eventsOf(events, "haptic").size() + eventsOf(events, "sound").size();
}

}  // namespace test
