// The clock of the process, in whole nanoseconds. It is either the system's clock or a stepped clock, which only a
// script advances.
#pragma once

#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/nanoseconds.hpp"

namespace foundation::clock {

ClockMode mode();
// Returns the time since the clock's zero: the start of the process, or the selection of the stepped clock. Any thread.
Nanoseconds now();
// Returns the real time since the process started, even if the clock is stepped. Any thread.
Nanoseconds realNow();
// Selects the clock. A stepped clock starts at zero. `unixTime` is the date at that time point, in seconds since 1970.
// Main thread.
void setMode(ClockMode mode, double unixTime);
// Sets the time of the stepped clock. Does not affect the real clock.
void setSteppedTime(Nanoseconds time);
// Converts a time of the real clock to the time of CLOCK_MONOTONIC.
Nanoseconds systemTime(Nanoseconds when);

}  // namespace foundation::clock
