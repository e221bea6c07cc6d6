#include "simulator/springboard/platter/time_text.hpp"

#include <string>

#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace springboard {

namespace {

constexpr double secondsInMinute = 60;
constexpr double secondsInHour = 60 * secondsInMinute;
constexpr double secondsInDay = 24 * secondsInHour;

// The locale's own format for these parts of a date.
NSString* formatFor(NSString* parts) {
  const auto* locale = objc::send<NSObject*, "currentLocale">(objc::lookUpClass<"NSLocale">());
  return objc::send<NSString*, "dateFormatFromTemplate:options:locale:">(NSDateFormatter::classObject(), parts,
                                                                         NSUInteger{0}, locale);
}

NSString* write(NSDate* date, NSString* format) {
  auto formatter = objc::make<NSDateFormatter>();
  formatter->setDateFormat(format);
  return formatter->stringFromDate(date);
}

// Asked of the locale by the template for hours as it writes them.
bool countsToTwentyFour() { return formatFor("j"_ns)->contains("H"_ns); }

NSString* ago(double seconds, double unit, const char* name) {
  return base::stringOf(std::to_string(static_cast<long>(seconds / unit)) + name + " ago");
}

}  // namespace

NSString* timeOfDay() { return write(NSDate::date(), countsToTwentyFour() ? "HH:mm"_ns : "h:mm"_ns); }

NSString* dayOfYear() { return write(NSDate::date(), formatFor("EEEEMMMMd"_ns)); }

NSString* timeSince(NSDate* date) {
  const double seconds = foundation::unixTimeNow() - objc::send<double, "timeIntervalSince1970">(date);
  if (date == nullptr || seconds < secondsInMinute) return "now"_ns;
  if (seconds < secondsInHour) return ago(seconds, secondsInMinute, "m");
  if (seconds < secondsInDay) return ago(seconds, secondsInHour, "h");
  return write(date, formatFor("MMMd"_ns));
}

}  // namespace springboard
