// The main thread's queue and the clock that timers, animations and dates read: real, or stepped by a script.
#pragma once

#include <cstdint>
#include <functional>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

enum class ClockMode { Real, Stepped };

// Seconds since the process began, by the clock in use. Main thread.
double now();

// Chooses the clock. Stepped: `unixTime` is what dates show at this moment (seconds since 1970).
void useClock(ClockMode mode, double unixTime);
// What dates show now, seconds since 1970.
double unixTimeNow();

// Work for the main thread, in order of arrival. Any thread.
void onMainThread(std::function<void()> work);
// Work for the main thread when `seconds` have passed. Equal times run in order of arrival. Any thread.
void onMainThreadAfter(double seconds, std::function<void()> work);
// The same, when the clock shows `when`.
void onMainThreadAt(Nanoseconds when, std::function<void()> work);

// Work for the main thread that the world outside brings, such as a server's answer. A real clock takes it at once; a
// stepped one when real time is let pass, so that the steps between see the same on every run. Any thread.
void onMainThreadFromOutside(std::function<void()> work);
// Real time has passed: what came from outside is work for the main thread now. Main thread.
void runExternalWork();

// Called on the main thread 60 times a second while it answers FrameDemand::More; a new observer is asked at the next
// frame. Idle processes have none, and wake up for nothing.
enum class FrameDemand { More, Done };
void addFrameObserver(std::function<FrameDemand(double now)> observer);

// Called at the end of each of the main thread's turns, when no work is due; it may add work to the same turn. One for
// all: a later observer takes the place of the one before.
void observeEndOfTurn(std::function<void()> observer);

// Runs all work that is due, without moving a stepped clock. Main thread.
void drainMainQueue();
// Moves the stepped clock by `seconds`, running timers and frames at their exact times, in order; timers come before a
// frame of the same time. A real clock runs for as long. Negative, infinite or not a number: as drainMainQueue. Main
// thread.
void stepClock(double seconds);
// Whether no work is due or scheduled and no frames are demanded.
bool mainQueueIsIdle();
// A real clock: runs until `stop` answers true, sleeping between events. Woken by onMainThread from other threads.
void runMainQueueUntil(const std::function<bool()>& stop);

}  // namespace foundation
