#include "simulator/base/iso_time.hpp"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <regex>

namespace base {

namespace {

int integer(const std::csub_match& digits) { return digits.matched ? std::atoi(digits.str().c_str()) : 0; }

// Converts "+02:00", "-0330" or "Z" to seconds. Returns nothing if the offset is invalid or out of range.
std::optional<int> utcOffset(const std::string& text) {
  if (text == "Z") return 0;
  const int hours = std::atoi(text.substr(1, 2).c_str());
  const int minutes = std::atoi(text.substr(text.size() - 2).c_str());
  if (hours > 14 || minutes > 59) return std::nullopt;
  return (text.front() == '-' ? -1 : 1) * (hours * 60 + minutes) * 60;
}

}  // namespace

std::optional<double> parseIsoTime(std::string_view text) {
  static const std::regex pattern(
      R"((\d{4})-(\d{2})-(\d{2})(?:[T ](\d{2}):(\d{2})(?::(\d{2})(\.\d{1,9})?)?(Z|[+-]\d{2}:?\d{2})?)?)");
  std::cmatch match;
  if (!std::regex_match(text.data(), text.data() + text.size(), match, pattern)) return std::nullopt;

  const std::chrono::year_month_day date{std::chrono::year(integer(match[1])),
                                         std::chrono::month(static_cast<unsigned>(integer(match[2]))),
                                         std::chrono::day(static_cast<unsigned>(integer(match[3])))};
  const int hour = integer(match[4]);
  const int minute = integer(match[5]);
  const int second = integer(match[6]);
  if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  const double fraction = match[7].matched ? std::atof(("0" + match[7].str()).c_str()) : 0;

  if (match[8].matched) {
    const std::optional<int> offset = utcOffset(match[8].str());
    if (!offset) return std::nullopt;
    const auto days = std::chrono::sys_days(date).time_since_epoch();
    const std::int64_t midnight = std::chrono::duration_cast<std::chrono::seconds>(days).count();
    const int secondOfDay = hour * 3600 + minute * 60 + second;
    return static_cast<double>(midnight + secondOfDay - *offset) + fraction;
  }
  std::tm local = {};
  local.tm_year = integer(match[1]) - 1900;
  local.tm_mon = integer(match[2]) - 1;
  local.tm_mday = integer(match[3]);
  local.tm_hour = hour;
  local.tm_min = minute;
  local.tm_sec = second;
  local.tm_isdst = -1;
  return static_cast<double>(std::getenv("TZ") == nullptr ? timegm(&local) : std::mktime(&local)) + fraction;
}

double systemUnixTime() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::string formatIsoTime(double unixTime) {
  const double wholeSeconds = std::floor(unixTime);
  const auto seconds = static_cast<std::time_t>(wholeSeconds);
  std::tm parts = {};
  gmtime_r(&seconds, &parts);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", parts.tm_year + 1900, parts.tm_mon + 1,
                parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                static_cast<int>((unixTime - wholeSeconds) * 1000));
  return text;
}

}  // namespace base
