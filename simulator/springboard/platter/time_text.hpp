// Times and dates as text in the phone's locale. Autoreleased. Main thread.
#pragma once

#include "platform/ns_date.hpp"

namespace springboard {

// The current time of day, without an AM or PM symbol.
NSString* currentTime();
// The current weekday and date, such as "Saturday, March 14".
NSString* currentDay();
// The age of a date: "now", "5m ago" or "2h ago", and the date itself after a day. A future date and nil are "now".
NSString* timeSince(NSDate* date);

}  // namespace springboard
