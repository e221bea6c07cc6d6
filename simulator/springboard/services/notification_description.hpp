// A notification as plain values. A script or another process provides the values. Texts are UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace springboard {

// A custom action of the application. `key` is a key of the dictionary supplementaryActions, such as
// "NCNotificationActionEnvironmentDefault".
struct ActionDescription {
  std::string key;
  std::optional<std::string> identifier;
  std::optional<std::string> title;
  bool acceptsText = false;
};

enum class AutomaticDismissal { Allowed, Forbidden, Unspecified };

struct NotificationDescription {
  std::string section;  // the application's bundle identifier
  // The identifier of the notification. If there is no value, a unique identifier is generated. A later request with
  // the same identifier replaces the earlier request.
  std::optional<std::string> identifier;
  std::optional<std::string> thread;
  std::optional<std::string> title;
  std::optional<std::string> subtitle;
  std::optional<std::string> message;
  std::optional<std::string> summary;
  nlohmann::ordered_json userInfo = nlohmann::ordered_json::object();
  std::vector<ActionDescription> actions;
  bool hasClearAction = true;
  bool hasCloseAction = false;
  bool hasSilenceAction = false;
  // Specifies whether the banner can dismiss itself. If the value is Unspecified, the request has no options.
  AutomaticDismissal automaticDismissal = AutomaticDismissal::Allowed;
  // The date in seconds since 1970. If there is no value, the current time is used.
  std::optional<double> date;
};

}  // namespace springboard
