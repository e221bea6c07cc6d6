// The queue of the main thread, and the clock of timers, animations and dates. The clock is either real or stepped by a
// script.
#pragma once

#include <cstdint>
#include <functional>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

enum class ClockMode { Real, Stepped };

// Returns the time on the current clock, in seconds since the clock's zero. Main thread.
double now();

// Selects the clock. For a stepped clock, `unixTime` is the current date in seconds since 1970; for a real clock, it is
// ignored. Main thread.
void useClock(ClockMode mode, double unixTime);
// Returns the current date on the current clock, in seconds since 1970.
double unixTimeNow();

// Runs work on the main thread, in the order in which it was added. Any thread.
void onMainThread(std::function<void()> work);
// Runs work on the main thread after `seconds`. Work with equal times runs in the order in which it was added. Any
// thread.
void onMainThreadAfter(double seconds, std::function<void()> work);
// Runs work on the main thread when the clock shows `when`. Any thread.
void onMainThreadAt(Nanoseconds when, std::function<void()> work);

// Runs work for an external event, such as a server's response, on the main thread. With a real clock, the work runs as
// soon as possible. With a stepped clock, it is pending until scheduleExternalWork is called, because steps of the
// clock must have the same result in every run. Any thread.
void onMainThreadForExternalEvent(std::function<void()> work);
// Adds the pending work for external events to the main queue. Call this whenever real time has passed. Main thread.
void scheduleExternalWork();

// Runs a request from another process on the main thread. Requests run in the order of the calls. With a real clock,
// each iteration runs at most one request, after its events and its frame, because a burst of requests must not delay
// input and frames. With a stepped clock, this function is equivalent to onMainThread. Main thread.
void onMainThreadForRequest(std::function<void()> work);
// Runs the first pending request, if there is one, and then the work that is due. Main thread.
void runNextRequest();

// The result of a frame observer, which is called on the main thread 60 times a second until it returns Done. A new
// observer is first called at the next frame. A process without observers does not wake for frames.
enum class FrameDemand { More, Done };
// Identifies a frame observer. No two observers have the same number.
using FrameObserverId = std::uint64_t;
FrameObserverId addFrameObserver(std::function<FrameDemand(double now)> observer);
// Adds an observer that is first called at the first frame at or after `when`, but not before the next frame. The
// process does not wake for the frames before that time.
FrameObserverId addFrameObserverAt(Nanoseconds when, std::function<FrameDemand(double now)> observer);
// Removes an observer. Does nothing if it has returned Done. An observer must not remove itself.
void removeFrameObserver(FrameObserverId observer);
// Returns the time of the first frame after this time.
Nanoseconds frameTimeAfter(Nanoseconds time);

// Adds an observer that is called at the end of each iteration of the main thread, when no work is due. The observers
// are called in the order in which they were added. An observer can add work to the same iteration. Main thread.
using IterationObserverId = std::uint64_t;
IterationObserverId addIterationObserver(std::function<void()> observer);
// Removes an observer. An observer must not add or remove observers. Main thread.
void removeIterationObserver(IterationObserverId observer);

// Runs all work that is due. Does not change a stepped clock. Main thread.
void drainMainQueue();
// Advances the stepped clock by `seconds`. Timers and frames run in order, at their exact times. A timer runs before a
// frame of the same time. With a real clock, runs the main queue for this duration. If `seconds` is negative, infinite
// or NaN, only runs the work that is due. Main thread.
void stepClock(double seconds);
// Returns whether no work is due or scheduled and there are no frame observers.
bool mainQueueIsIdle();
// Requires a real clock. Runs the main queue until `stop` returns true, and sleeps between events. A call of
// onMainThread on any thread ends the sleep. Main thread.
void runMainQueueUntil(const std::function<bool()>& stop);

}  // namespace foundation
