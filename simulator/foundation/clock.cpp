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

std::atomic<ClockMode> chosen = ClockMode::Real;
std::atomic<Nanoseconds> stepped = 0;
std::atomic<double> unixTimeAtZero = 0;

Nanoseconds processStart() {
  static const Nanoseconds start = read(CLOCK_MONOTONIC);
  return start;
}

// Taken when the library is mapped, so that no later first use moves it.
[[maybe_unused]] const Nanoseconds startTaken = processStart();

}  // namespace

ClockMode mode() { return chosen; }

Nanoseconds realNow() { return read(CLOCK_MONOTONIC) - processStart(); }

Nanoseconds now() { return mode() == ClockMode::Stepped ? stepped.load() : realNow(); }

void choose(ClockMode mode, double unixTime) {
  stepped = 0;
  unixTimeAtZero = unixTime;
  chosen = mode;
}

void moveTo(Nanoseconds when) { stepped = when; }

Nanoseconds systemTime(Nanoseconds when) { return later(processStart(), when); }

}  // namespace clock

double now() { return secondsOf(clock::now()); }

double unixTimeNow() {
  if (clock::mode() == ClockMode::Stepped) return clock::unixTimeAtZero + now();
  return secondsOf(clock::read(CLOCK_REALTIME));
}

}  // namespace foundation
