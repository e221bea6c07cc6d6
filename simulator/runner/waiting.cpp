#include "simulator/runner/waiting.hpp"

#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/springboard/shell/clocks.hpp"

namespace runner {

void letTimePass(double seconds) {
  foundation::pumpRunLoop();
  foundation::stepClock(seconds);
  foundation::pumpRunLoop();
  springboard::refreshClocks();
}

}  // namespace runner
