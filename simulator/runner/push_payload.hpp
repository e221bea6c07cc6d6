// The public JSON payload of remote notifications.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "simulator/springboard/services/notification_description.hpp"

namespace runner {

// The maximum size of a payload that the platform's push service accepts, in bytes.
inline constexpr std::size_t maxPayloadBytes = 4096;

// Converts a payload to a notification of the application. `aps.alert` is a string or an object with `title`,
// `subtitle` and `body`. The whole payload becomes the user info. Throws CommandError, whose message names the invalid
// member.
springboard::NotificationDescription describePayload(const std::string& application,
                                                     const nlohmann::ordered_json& payload);

}  // namespace runner
