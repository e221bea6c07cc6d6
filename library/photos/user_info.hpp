// Reads the values that the sender attaches to a notification for its own application. The values are untrusted input
// of any type; these functions check the type. Each dictionary can be nil. Main thread.
#pragma once

#include "platform/nc_notification_request.hpp"

// Returns nil if the notification has no values.
NSDictionary* userInfoOf(NCNotificationRequest* request);

// Each of these two functions returns the value of the key, or nil if the value is missing or has another type.
NSDictionary* dictionaryAt(NSDictionary* values, NSString* key);
NSString* textAt(NSDictionary* values, NSString* key);
// Returns an identifier, which can be stored as a string or as a number. Returns nil if the value is missing or has
// another type.
NSString* identifierAt(NSDictionary* values, NSString* key);
