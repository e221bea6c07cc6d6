// What the sender of a notification put into it for its own application. Nobody vouches for the types of its values:
// they are read through these alone.
#pragma once

#include "platform/nc_notification_request.hpp"

// nil where the notification carries none.
NSDictionary* userInfoOf(NCNotificationRequest* request);

// nil where there is no such value, or it is of another type.
NSDictionary* dictionaryAt(NSDictionary* values, NSString* key);
NSString* textAt(NSDictionary* values, NSString* key);
// An identifier that senders write as a string or as a number, as text.
NSString* identifierAt(NSDictionary* values, NSString* key);
