// The main thread's sleep: GNUstep's run loop, with this system's own descriptors beside Foundation's.
#pragma once

#include <functional>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

// From now on `whenReadable` is called in the run loop's turns in which the descriptor has something to read. It must
// read, or stop watching. A descriptor has one watcher; it is the caller's, and is unwatched before it is closed. Main
// thread.
void watchDescriptor(int descriptor, std::function<void()> whenReadable);
void unwatchDescriptor(int descriptor);

// Lets in what other processes have sent: distributed notifications, changed preferences, watched descriptors. Waits
// for real seconds, at most so many, until something comes, and takes the servers' answers; 0 only looks. Main thread.
void pumpFoundation(double waitAtMost = 0);
// The same, and what is due on the main queue by then: a notification that came while this process spoke to the daemon
// waits there.
void letNewsIn(double waitAtMost);

// Sleeps until the system's monotonic time `deadline`, a descriptor or another thread's wakeMainThread. Main thread.
void sleepUntil(Nanoseconds deadline);
// Any thread.
void wakeMainThread();

}  // namespace foundation
