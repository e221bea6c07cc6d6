// Conversion between notifications and the fields of the command "present". Main thread.
#pragma once

#include <nlohmann/json.hpp>

#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_request.hpp"

namespace runner {

// Returns the notification that the fields describe. The caller must have checked the types of the fields. Ignores
// "icon". The date can also be a number of seconds since 1970.
springboard::NotificationDescription describe(const nlohmann::ordered_json& fields);
// Returns the fields that describe the request, without the icon. The date is a number of seconds since 1970, because a
// date in text form is rounded to milliseconds.
nlohmann::ordered_json fieldsOf(const NCNotificationRequest* request);

// Returns the fields of all notifications in the list, oldest first.
nlohmann::ordered_json storedNotifications();
// Adds notifications to the list without presenting them.
void restoreNotifications(const nlohmann::ordered_json& notifications);

}  // namespace runner
