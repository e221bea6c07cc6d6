// Records the notifications that this process posts to NSNotificationCenter and NSDistributedNotificationCenter. The
// records are events in the event log.
#pragma once

#include "platform/ns_string.hpp"

namespace springboard {

// Starts recording. The platform's own notifications are not recorded. Call this once, after the classes have been
// registered. Main thread.
void recordPostedNotifications();

// Posts a distributed notification without recording it, as if another process had posted it. Call this only after
// recordPostedNotifications.
void postUnrecorded(NSString* name);

}  // namespace springboard
