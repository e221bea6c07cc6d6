// Conversions between Unix time, in seconds since 1970, and ISO 8601 text. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

// Parses a date such as "2020-03-14" or a date and time such as "2020-03-14T09:41". Seconds, a fraction of a second,
// and "Z" or an offset such as "+02:00" are optional. A time without an offset is in the phone's time zone: the value
// of the TZ environment variable, or UTC if TZ is unset. Returns Unix time, or nothing if the text is not a valid date.
std::optional<double> parseIsoTime(std::string_view text);

// Returns the Unix time of the system clock, even if the phone uses a stepped clock.
double systemUnixTime();

// Formats a Unix time as UTC with milliseconds, such as "2020-03-14T09:41:00.000Z".
std::string formatIsoTime(double unixTime);

}  // namespace base
