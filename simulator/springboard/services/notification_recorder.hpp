// Records in the event log the notifications that this process posts to NSNotificationCenter and
// NSDistributedNotificationCenter.
#pragma once

#include "platform/ns_string.hpp"

namespace springboard {

// Starts recording. Notifications of the platform itself are not recorded. Call it once, after the classes have been
// registered.
void recordPostedNotifications();

// Posts a distributed notification without recording it, as if another process had posted it. Call it only while
// notifications are recorded.
void postUnrecorded(NSString* name);

}  // namespace springboard
