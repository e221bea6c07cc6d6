// What the process posts to others and to itself, written into the event log.
#pragma once

#include "platform/ns_string.hpp"

namespace springboard {

// From now on notifications are recorded, save those of the platform's own names. Once, after the classes are there.
void observePosts();

// Posts a notification to all processes, on behalf of one outside the phone: it is not recorded. Once posts are
// observed.
void postUnobserved(NSString* name);

}  // namespace springboard
