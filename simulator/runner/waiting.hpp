// Lets time pass on the current clock. Main thread.
#pragma once

namespace runner {

// Advances a stepped clock by this number of seconds. With a real clock, runs the phone for this time. In both cases,
// external events that have already occurred are handled first.
void letTimePass(double seconds);

}  // namespace runner
