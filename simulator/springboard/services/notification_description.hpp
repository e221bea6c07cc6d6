// A notification in plain values, as a script or another process describes it.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace springboard {

// One of the sender's own actions, filed under a key such as "NCNotificationActionEnvironmentDefault".
struct ActionDescription {
  std::string key;
  std::optional<std::string> identifier;
  std::optional<std::string> title;
  bool acceptsText = false;
};

enum class AutomaticDismissal { Allowed, Forbidden, Unspecified };

// A notification in plain values.
struct NotificationDescription {
  std::string section;
  // One of its own when nothing is said. A later request with the identifier of an earlier one replaces it.
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
  // Unspecified: a request without options.
  AutomaticDismissal automaticDismissal = AutomaticDismissal::Allowed;
  // Seconds since 1970; now when nothing is said.
  std::optional<double> date;
};

}  // namespace springboard
