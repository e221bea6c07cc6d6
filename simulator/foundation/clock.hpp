// The clock of the process, in whole nanoseconds. It is either the system's clock or a clock that a script steps.
#pragma once

#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/nanoseconds.hpp"

namespace foundation::clock {

ClockMode mode();
// The time since the process started, on the current clock. Any thread.
Nanoseconds now();
// The time since the process started, on the real clock in either mode. Any thread.
Nanoseconds realNow();
// Selects the clock. A stepped clock starts at zero, and dates show `unixTime` at that time point. Main thread.
void setMode(ClockMode mode, double unixTime);
// Sets the time of a stepped clock. Has no effect on the real clock.
void setSteppedTime(Nanoseconds time);
// The CLOCK_MONOTONIC time at which the real clock shows `when`.
Nanoseconds systemTime(Nanoseconds when);

}  // namespace foundation::clock
