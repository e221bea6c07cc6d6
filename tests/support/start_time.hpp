// The time at which the clock of a phone in a test starts. With the real time, two screens that a test compares would
// show different times if a minute ended in between.
#pragma once

namespace test {

// 2020-03-14 at 09:41:00, UTC, in seconds since 1970.
constexpr double startTime = 1584178860;

}  // namespace test
