#include "simulator/runner/live_phone.hpp"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/process/control_socket.hpp"
#include "simulator/process/signals.hpp"
#include "simulator/runner/control_server.hpp"
#include "simulator/springboard/shell/clocks.hpp"

namespace runner {

namespace {

constexpr int cannotStart = 2;
constexpr std::size_t maxEvents = 10'000;
constexpr double secondsInMinute = 60;

// Updates the clocks now and at the beginning of each minute.
void keepClocksCurrent() {
  const objc::AutoreleasePool pool;
  springboard::refreshClocks();
  const double secondsToNextMinute = secondsInMinute - std::fmod(foundation::unixTimeNow(), secondsInMinute);
  foundation::onMainThreadAfter(secondsToNextMinute, &keepClocksCurrent);
}

}  // namespace

int runLive(Session& session) {
  process::ignoreWriteSignals();
  process::handleTerminationSignals();
  base::limitEventLog(maxEvents);
  const ControlServer server(session);
  if (!server.isListening()) {
    std::fprintf(stderr, "springboard: %s: cannot listen for commands: %s\n",
                 process::controlFolder(foundation::root()).c_str(), std::strerror(errno));
    return cannotStart;
  }
  keepClocksCurrent();
  std::printf("the phone is running on %s\n", foundation::root().c_str());
  std::fflush(stdout);
  foundation::runMainQueueUntil(&process::isTerminationRequested);
  return 0;
}

}  // namespace runner
