// The clocks of the status bar and the lock screen, in the locale of the phone. Texts are autoreleased. Main thread.
#pragma once

#include "platform/ns_string.hpp"

namespace springboard {

// The current time of day, without an AM or PM symbol.
NSString* currentTime();

// The current weekday and date, such as "Saturday, March 14".
NSString* currentDay();

// Updates the clocks if the minute has changed. It is cheap to call after every script command, because it does nothing
// within the same minute.
void refreshClocks();

}  // namespace springboard
