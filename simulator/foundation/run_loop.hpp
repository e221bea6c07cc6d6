// The run loop of the main thread. It is GNUstep's run loop, extended by file descriptors of the simulator.
#pragma once

#include <functional>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

// Calls `whenReadable` in each run-loop iteration in which the descriptor is readable. The function must read from the
// descriptor or unwatch it. A descriptor has one watcher. The descriptor remains the caller's, who must unwatch it
// before closing it. Main thread.
void watchDescriptor(int descriptor, std::function<void()> whenReadable);
void unwatchDescriptor(int descriptor);

// Processes what other processes have sent: distributed notifications, changed preferences and watched descriptors.
// With a positive argument, first waits up to that many real seconds for an event, and adds the responses of servers to
// the main queue. Main thread.
void pumpRunLoop(double waitAtMost = 0);
// Calls pumpRunLoop and then runs the due work of the main queue. A notification that arrived during a call to the
// notification daemon is such work. Main thread.
void pumpRunLoopAndMainQueue(double waitAtMost);

// Sleeps until the CLOCK_MONOTONIC time `deadline`, an event on a descriptor, or a call of wakeMainThread. Main thread.
void sleepUntil(Nanoseconds deadline);
// Any thread.
void wakeMainThread();

}  // namespace foundation
