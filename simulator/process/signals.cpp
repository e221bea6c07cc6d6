#include "simulator/process/signals.hpp"

#include <atomic>
#include <csignal>

#include "simulator/foundation/run_loop.hpp"

namespace process {

namespace {

std::atomic<bool> terminationRequested = false;

}  // namespace

void handleTerminationSignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, [](int) { requestTermination(); });
}

void requestTermination() {
  terminationRequested = true;
  foundation::wakeMainThread();
}

bool isTerminationRequested() { return terminationRequested; }

void ignoreWriteSignals() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace process
