#include "simulator/springboard/platter/time_text.hpp"

#include <map>
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

// Returns a cached formatter, which is created at the first use of the format. The status bar, the lock screen and the
// banners use only a few formats.
NSDateFormatter* formatterFor(NSString* format) {
  constexpr std::size_t maxFormatters = 16;
  static auto& formatters = *new std::map<std::string, objc::Ref<NSDateFormatter>>;
  const std::string key = base::textOf(format);
  if (const auto found = formatters.find(key); found != formatters.end()) return found->second;
  if (formatters.size() == maxFormatters) formatters.clear();
  auto formatter = objc::make<NSDateFormatter>();
  formatter->setDateFormat(format);
  return formatters.emplace(key, std::move(formatter)).first->second;
}

}  // namespace

NSString* localizedFormat(NSString* fields) {
  const auto* locale = objc::send<NSObject*, "currentLocale">(objc::lookUpClass<"NSLocale">());
  return objc::send<NSString*, "dateFormatFromTemplate:options:locale:">(NSDateFormatter::classObject(), fields,
                                                                         NSUInteger{0}, locale);
}

NSString* formatDate(NSDate* date, NSString* format) { return formatterFor(format)->stringFromDate(date); }

NSString* timeSince(NSDate* date) {
  const double seconds = foundation::unixTimeNow() - objc::send<double, "timeIntervalSince1970">(date);
  if (date == nullptr || seconds < secondsInMinute) return "now"_ns;
  if (seconds < secondsInHour) return ago(seconds, secondsInMinute, "m");
  if (seconds < secondsInDay) return ago(seconds, secondsInHour, "h");
  return formatDate(date, localizedFormat("MMMd"_ns));
}

}  // namespace springboard
