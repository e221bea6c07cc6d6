// A notification as plain values, as a script or another process describes it. Texts are UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace springboard {

// A custom action of the application. `key` is a key of supplementaryActions, such as
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
  // A unique identifier if nothing is given. A later request with the identifier of an earlier one replaces it.
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
  // For Unspecified, the request has no options.
  AutomaticDismissal automaticDismissal = AutomaticDismissal::Allowed;
  // Seconds since 1970. The current time if nothing is given.
  std::optional<double> date;
};

}  // namespace springboard
