// Reads the values that a notification's sender stores for its own application. The values are untrusted input of any
// type; these functions check the type.
#pragma once

#include "platform/nc_notification_request.hpp"

// nil if the notification has no values.
NSDictionary* userInfoOf(NCNotificationRequest* request);

// The value of the key. nil if it is missing or has another type.
NSDictionary* dictionaryAt(NSDictionary* values, NSString* key);
NSString* textAt(NSDictionary* values, NSString* key);
// An identifier, which senders store as a string or as a number. nil if it is missing or has another type.
NSString* identifierAt(NSDictionary* values, NSString* key);
