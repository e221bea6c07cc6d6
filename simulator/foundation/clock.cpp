#include "simulator/foundation/clock.hpp"

#include <ctime>

#include <atomic>

namespace foundation {

namespace clock {

namespace {

Nanoseconds read(clockid_t source) {
  timespec time = {};
  clock_gettime(source, &time);
  return time.tv_sec * nanosecondsInSecond + time.tv_nsec;
}

std::atomic<ClockMode> currentMode = ClockMode::Real;
std::atomic<Nanoseconds> steppedTime = 0;
std::atomic<double> unixTimeAtZero = 0;

Nanoseconds processStart() {
  static const Nanoseconds start = read(CLOCK_MONOTONIC);
  return start;
}

// Reads the start time when the library is loaded. Without this variable, the start time would be the first use of the
// clock.
[[maybe_unused]] const Nanoseconds startReadAtLoad = processStart();

}  // namespace

ClockMode mode() { return currentMode; }

Nanoseconds realNow() { return read(CLOCK_MONOTONIC) - processStart(); }

Nanoseconds now() { return mode() == ClockMode::Stepped ? steppedTime.load() : realNow(); }

void setMode(ClockMode mode, double unixTime) {
  steppedTime = 0;
  unixTimeAtZero = unixTime;
  currentMode = mode;
}

void setSteppedTime(Nanoseconds time) { steppedTime = time; }

Nanoseconds systemTime(Nanoseconds when) { return saturatingSum(processStart(), when); }

}  // namespace clock

double now() { return secondsOf(clock::now()); }

double unixTimeNow() {
  if (clock::mode() == ClockMode::Stepped) return clock::unixTimeAtZero + now();
  return secondsOf(clock::read(CLOCK_REALTIME));
}

}  // namespace foundation
