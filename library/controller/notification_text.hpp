// The texts of a notification as the platform's content view shows them.
#pragma once

#include "platform/nc_notification_view.hpp"
#include "platform/ns_string.hpp"

// A text that says something, else null.
inline NSString* presentText(NSString* text) { return text != nullptr && text->length() != 0 ? text : nullptr; }

// The message; from 12.0 on, where there is none, the summary as it is.
NSString* bodyText(NCNotificationShortLookView* content);
