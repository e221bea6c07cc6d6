// The time at which the clock of a test's phone starts. If the clock started at the real time, two screens that a test
// compares could show different minutes.
#pragma once

namespace test {

// 2020-03-14 at 09:41:00, UTC, in seconds since 1970.
constexpr double startTime = 1584178860;

}  // namespace test
