#include "simulator/springboard/shell/clocks.hpp"

#include <cmath>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "simulator/springboard/shell/status_bar.hpp"

namespace springboard {

void refreshClocks() {
  constexpr double secondsInMinute = 60;
  static double shownMinute = -1;
  const double minute = std::floor(foundation::unixTimeNow() / secondsInMinute);
  if (minute == shownMinute) return;
  shownMinute = minute;
  refreshStatusBar();
  SBLockScreenManager::sharedInstance()->refresh();
}

}  // namespace springboard
