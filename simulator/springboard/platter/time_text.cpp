#include "simulator/springboard/platter/time_text.hpp"

#include <string>

#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace springboard {

namespace {

constexpr double secondsInMinute = 60;
constexpr double secondsInHour = 60 * secondsInMinute;
constexpr double secondsInDay = 24 * secondsInHour;

NSString* ago(double seconds, double unit, const char* name) {
  return base::stringOf(std::to_string(static_cast<long>(seconds / unit)) + name + " ago");
}

}  // namespace

NSString* localizedFormat(NSString* fields) {
  const auto* locale = objc::send<NSObject*, "currentLocale">(objc::lookUpClass<"NSLocale">());
  return objc::send<NSString*, "dateFormatFromTemplate:options:locale:">(NSDateFormatter::classObject(), fields,
                                                                         NSUInteger{0}, locale);
}

NSString* formatDate(NSDate* date, NSString* format) {
  auto formatter = objc::make<NSDateFormatter>();
  formatter->setDateFormat(format);
  return formatter->stringFromDate(date);
}

NSString* timeSince(NSDate* date) {
  const double seconds = foundation::unixTimeNow() - objc::send<double, "timeIntervalSince1970">(date);
  if (date == nullptr || seconds < secondsInMinute) return "now"_ns;
  if (seconds < secondsInHour) return ago(seconds, secondsInMinute, "m");
  if (seconds < secondsInDay) return ago(seconds, secondsInHour, "h");
  return formatDate(date, localizedFormat("MMMd"_ns));
}

}  // namespace springboard
