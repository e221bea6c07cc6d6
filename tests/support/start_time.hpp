// When the phones of tests start: at the real time, what is compared would differ where a minute ends between the two.
#pragma once

namespace test {

// 2020-03-14 at 09:41:00, UTC, in seconds since 1970.
constexpr double startTime = 1584178860;

}  // namespace test
