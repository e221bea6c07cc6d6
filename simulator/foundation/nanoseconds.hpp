// Whole nanoseconds: sums of delays stay exact, so a deadline and a step of the same length meet.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace foundation {

using Nanoseconds = std::int64_t;

inline constexpr Nanoseconds never = std::numeric_limits<Nanoseconds>::max();
inline constexpr Nanoseconds nanosecondsInSecond = 1'000'000'000;

// Negative and not-a-number give 0, more than the type holds gives `never`.
inline Nanoseconds nanosecondsOf(double seconds) {
  if (!(seconds > 0)) return 0;
  const double exact = seconds * static_cast<double>(nanosecondsInSecond);
  return exact < 9e18 ? std::llround(exact) : never;
}

inline double secondsOf(Nanoseconds nanoseconds) {
  return static_cast<double>(nanoseconds) / static_cast<double>(nanosecondsInSecond);
}

// The sum, or `never` where it would not fit. Both are zero or more.
inline Nanoseconds later(Nanoseconds when, Nanoseconds delay) { return when > never - delay ? never : when + delay; }

}  // namespace foundation
