// Lets time pass on the current clock. Main thread.
#pragma once

namespace runner {

// Advances a stepped clock by this number of seconds. With a real clock, runs the phone for this time or until
// termination of the process is requested. In both cases, external events that have already occurred are handled first.
void letTimePass(double seconds);

// Waits for external events for this number of real seconds. A stepped clock does not change. With a real clock, throws
// CommandError if termination of the process is requested.
void awaitExternalEvents(double seconds);

}  // namespace runner
