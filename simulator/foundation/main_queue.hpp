// The queue of the main thread, and the clock that timers, animations and dates use. The clock is real or is stepped by
// a script.
#pragma once

#include <cstdint>
#include <functional>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

enum class ClockMode { Real, Stepped };

// Seconds since the process started, on the current clock. Main thread.
double now();

// Selects the clock. For a stepped clock, `unixTime` is the current date in seconds since 1970. Main thread.
void useClock(ClockMode mode, double unixTime);
// The current date in seconds since 1970, on the current clock.
double unixTimeNow();

// Runs work on the main thread, in the order in which it was added. Any thread.
void onMainThread(std::function<void()> work);
// Runs work on the main thread after `seconds`. Work with equal times runs in the order in which it was added. Any
// thread.
void onMainThreadAfter(double seconds, std::function<void()> work);
// Runs work on the main thread when the clock shows `when`. Any thread.
void onMainThreadAt(Nanoseconds when, std::function<void()> work);

// Runs work on the main thread that an external event caused, such as a server's response. With a real clock it runs as
// soon as possible. With a stepped clock it waits for scheduleExternalWork, because steps of the clock must have the
// same result in every run. Any thread.
void onMainThreadForExternalEvent(std::function<void()> work);
// Adds all waiting work of external events to the main queue. Called whenever real time has passed. Main thread.
void scheduleExternalWork();

// An observer is called on the main thread 60 times a second until it returns FrameDemand::Done. A new observer is
// first called at the next frame. A process without observers is not woken for frames.
enum class FrameDemand { More, Done };
void addFrameObserver(std::function<FrameDemand(double now)> observer);

// Sets the function that is called at the end of each iteration of the main thread, when no work is due. It may add
// work to the same iteration. There is one such observer; a new one replaces it.
void observeEndOfIteration(std::function<void()> observer);

// Runs all work that is due, without changing a stepped clock. Main thread.
void drainMainQueue();
// Advances the stepped clock by `seconds`. Timers and frames run in order, at their exact times; a timer runs before a
// frame of the same time. With a real clock, runs the main queue for that long. A negative, infinite or NaN value only
// runs the work that is due. Main thread.
void stepClock(double seconds);
// Whether no work is due or scheduled and there are no frame observers.
bool mainQueueIsIdle();
// With a real clock: runs until `stop` returns true, and sleeps between events. onMainThread wakes it from any thread.
void runMainQueueUntil(const std::function<bool()>& stop);

}  // namespace foundation
