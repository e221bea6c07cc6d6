// Banners with actions, and the actions that the platform gets back.
#pragma once

#include <string>
#include <vector>

#include "tests/library/phone.hpp"

namespace test {

using Identifiers = std::vector<std::string>;

inline constexpr const char* snooze = "MTAlarmSnoozeAction";
inline constexpr const char* close = "com.apple.UNNotificationCloseActionIdentifier";
inline constexpr const char* clear = "com.apple.UNNotificationDismissActionIdentifier";

// Presents a notification that no timer takes away, and passes over what the platform saw until it is at rest.
inline int presentAtRest(Phone& phone, const Json& fields = Json::object()) {
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

inline int presentAlarm(Phone& phone, const Json& actions, bool hasClose = true) {
  return presentAtRest(phone, {{"section", "com.apple.mobiletimer"}, {"close", hasClose}, {"actions", actions}});
}

inline Identifiers executed(const Json& events) {
  Identifiers found;
  for (const Json& event : eventsOf(events, "action")) found.push_back(event.at("identifier"));
  return found;
}

inline std::size_t haptics(const Json& events) {
  return eventsOf(events, "haptic").size() + eventsOf(events, "sound").size();
}

}  // namespace test
