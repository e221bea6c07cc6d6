// How the phone writes times, as its locale has it.
#pragma once

#include "platform/ns_date.hpp"

namespace springboard {

// The time of day, without the marks of morning and afternoon.
NSString* timeOfDay();
// The day of the week and of the year, such as "Saturday, March 14".
NSString* dayOfYear();
// How long ago it was: "now", "5m ago", "2h ago", and from a day on its date. What lies ahead is now.
NSString* timeSince(NSDate* date);

}  // namespace springboard
