#include "simulator/runner/waiting.hpp"

#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/process/signals.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/springboard/shell/clocks.hpp"

namespace runner {

namespace {

bool isClockReal() { return foundation::clock::mode() == foundation::ClockMode::Real; }

void passRealTime(double seconds) {
  const double end = foundation::now() + seconds;
  // The empty work wakes the main thread at that time, because otherwise no event might wake it then.
  foundation::onMainThreadAfter(seconds, [] {});
  foundation::runMainQueueUntil([end] { return foundation::now() >= end || process::isTerminationRequested(); });
}

}  // namespace

void letTimePass(double seconds) {
  foundation::pumpRunLoop();
  if (isClockReal()) {
    passRealTime(seconds);
  } else {
    foundation::stepClock(seconds);
  }
  foundation::pumpRunLoop();
  springboard::refreshClocks();
}

void awaitExternalEvents(double seconds) {
  if (!isClockReal()) return foundation::pumpRunLoopAndMainQueue(seconds);
  passRealTime(seconds);
  if (process::isTerminationRequested()) throw CommandError("the phone was terminated during the command");
}

}  // namespace runner
