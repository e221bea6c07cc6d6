// The run loop of the main thread: GNUstep's run loop, which also watches file descriptors for the simulator.
#pragma once

#include <functional>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

// Creates the run loop of the main thread without GNUstep's housekeeping timer, which would wake the process every 30
// seconds to synchronize the user's defaults. The simulator synchronizes them when their files change. Call this before
// any other use of the run loop. Main thread.
void makeRunLoopWithoutHousekeeping();

// Calls `whenReadable` in each run-loop iteration in which the descriptor is readable. The function must read from the
// descriptor or unwatch it. A descriptor has one watcher. The caller still owns the descriptor and must unwatch it
// before closing it. Main thread.
void watchDescriptor(int descriptor, std::function<void()> whenReadable);
void unwatchDescriptor(int descriptor);

// Processes events from other processes: distributed notifications, changed preferences and watched descriptors. If
// `waitAtMost` is positive, the function first waits for an event, for up to this number of real seconds, and then adds
// the responses of servers to the main queue. Main thread.
void pumpRunLoop(double waitAtMost = 0);
// Calls pumpRunLoop and then runs the due work of the main queue. This work includes notifications that arrived during
// a call to the notification daemon. Main thread.
void pumpRunLoopAndMainQueue(double waitAtMost);

// Sleeps until the CLOCK_MONOTONIC time `deadline`, an event on a descriptor, or a call of wakeMainThread. Main thread.
void sleepUntil(Nanoseconds deadline);
// Wakes the main thread if it sleeps. Any thread.
void wakeMainThread();

}  // namespace foundation
