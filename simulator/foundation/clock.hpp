// The process's one clock in whole nanoseconds: real, or moved by hand.
#pragma once

#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/nanoseconds.hpp"

namespace foundation::clock {

ClockMode mode();
// Since the process began, by the clock in use. Any thread.
Nanoseconds now();
// By the real clock, whichever is in use. Any thread.
Nanoseconds realNow();
// Changes the clock; a stepped one starts at zero. Main thread.
void choose(ClockMode mode, double unixTime);
// Sets a stepped clock; has no effect on a real one.
void moveTo(Nanoseconds when);
// The monotonic system time at which the real clock shows `when`.
Nanoseconds systemTime(Nanoseconds when);

}  // namespace foundation::clock
