#include "simulator/springboard/shell/clocks.hpp"

#include <cmath>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/platter/time_text.hpp"
#include "simulator/springboard/shell/cover_sheet.hpp"
#include "simulator/springboard/shell/status_bar.hpp"

namespace springboard {

namespace {

// Returns whether the locale uses the 24-hour clock. The template "j" selects the hour format of the locale.
bool uses24HourClock() { return localizedFormat("j"_ns)->contains("H"_ns); }

}  // namespace

NSString* currentTime() { return formatDate(NSDate::date(), uses24HourClock() ? "HH:mm"_ns : "h:mm"_ns); }

NSString* currentDay() { return formatDate(NSDate::date(), localizedFormat("EEEEMMMMd"_ns)); }

void refreshClocks() {
  constexpr double secondsInMinute = 60;
  static double shownMinute = -1;
  const double minute = std::floor(foundation::unixTimeNow() / secondsInMinute);
  if (minute == shownMinute) return;
  shownMinute = minute;
  refreshStatusBar();
  refreshCoverSheet();
}

}  // namespace springboard
