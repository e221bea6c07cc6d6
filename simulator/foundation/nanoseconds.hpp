// Time in whole nanoseconds. Sums of such times are exact, so a timer fires in the step that ends at its deadline.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace foundation {

using Nanoseconds = std::int64_t;

inline constexpr Nanoseconds never = std::numeric_limits<Nanoseconds>::max();
inline constexpr Nanoseconds nanosecondsInSecond = 1'000'000'000;

// Converts seconds to nanoseconds. Returns 0 for a negative value or NaN, and `never` for a value beyond the range of
// the type.
inline Nanoseconds nanosecondsOf(double seconds) {
  if (!(seconds > 0)) return 0;
  const double exact = seconds * static_cast<double>(nanosecondsInSecond);
  return exact < 9e18 ? std::llround(exact) : never;
}

inline double secondsOf(Nanoseconds nanoseconds) {
  return static_cast<double>(nanoseconds) / static_cast<double>(nanosecondsInSecond);
}

// Returns the sum, or `never` if the sum overflows. Neither argument may be negative.
inline Nanoseconds saturatingSum(Nanoseconds when, Nanoseconds delay) {
  return when > never - delay ? never : when + delay;
}

}  // namespace foundation
