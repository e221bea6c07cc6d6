// The texts of the clocks in the status bar and on the lock screen, in the locale of the phone. The texts are
// autoreleased. Main thread.
#pragma once

#include "platform/ns_string.hpp"

namespace springboard {

// Returns the current time of day, without an AM or PM symbol.
NSString* currentTime();

// Returns the current weekday and date, such as "Saturday, March 14".
NSString* currentDay();

// Updates the clocks if the minute has changed. Calls within the same minute do nothing, so this function can be called
// after every script command.
void refreshClocks();

}  // namespace springboard
