// Points in time, in seconds since 1970 and as ISO 8601 text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

// "2020-03-14", "2020-03-14T09:41", with seconds, fractions of them, and "Z" or an offset such as "+02:00"; without an
// offset it is in the phone's time zone: that of the environment's TZ, or UTC. In seconds since 1970; nothing for what
// is no date.
std::optional<double> parseIsoTime(std::string_view text);

// Now, by the system's clock, whichever the phone goes by.
double realTime();

// In universal time, with milliseconds.
std::string isoTime(double unixTime);

}  // namespace base
