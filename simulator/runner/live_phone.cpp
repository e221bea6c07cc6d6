#include "simulator/runner/live_phone.hpp"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/plugin.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/process/control_socket.hpp"
#include "simulator/process/signals.hpp"
#include "simulator/runner/control_server.hpp"
#include "simulator/runner/notification_json.hpp"
#include "simulator/runner/restart.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/runner/welcome.hpp"
#include "simulator/runner/window_plugin.hpp"
#include "simulator/springboard/shell/clocks.hpp"

namespace runner {

namespace {

constexpr int displayLost = 1;
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

// Returns null, with an error on standard error, if the window cannot be opened.
std::unique_ptr<PhoneWindow> openWindow(WindowPlace place) {
  const char* const plugin = place == WindowPlace::Desktop ? "window.so" : "web_page.so";
  const auto open =
      reinterpret_cast<decltype(&brim_open_window)>(foundation::pluginFunction(plugin, "brim_open_window"));
  if (open == nullptr) return nullptr;
  return std::unique_ptr<PhoneWindow>(open());
}

bool hasLostDisplay(const PhoneWindow* window) {
  return window != nullptr && window->state() == WindowState::DisplayLost;
}

// Runs the phone until it is terminated. If this phone replaces another one, `inheritance` contains its control socket.
// If another phone will replace this one, `inheritance` receives the control socket. Returns the exit status.
int runUntilTerminated(Session& session, const Options& options, Inheritance& inheritance) {
  const bool isReplacement = inheritance.listening.isOpen();
  std::unique_ptr<PhoneWindow> window;
  if (options.window && (window = openWindow(*options.window)) == nullptr) return cannotStart;
  ControlServer server(session, std::move(inheritance.listening));
  if (!server.isListening()) {
    std::fprintf(stderr, "springboard: %s: cannot listen for commands: %s\n",
                 process::controlFolder(foundation::root()).c_str(), std::strerror(errno));
    return cannotStart;
  }
  keepClocksCurrent();
  if (options.welcome == Welcome::Played && !isReplacement) scheduleWelcome(session);
  std::printf("the phone is running on %s\n", foundation::root().c_str());
  if (options.window == WindowPlace::WebPage) std::printf("the phone is displayed at %s\n", window->address().c_str());
  std::fflush(stdout);
  foundation::runMainQueueUntil(&process::isTerminationRequested);
  if (requestedRestart() != nullptr) inheritance.listening = server.takeSocket();
  if (!hasLostDisplay(window.get())) return 0;
  std::fprintf(stderr, "springboard: the phone has ended, because the connection to the display was lost\n");
  return displayLost;
}

}  // namespace

int runLive(const Options& options) {
  process::ignoreWriteSignals();
  process::handleTerminationSignals();
  base::limitEventLog(maxEvents);
  Inheritance inheritance = takeInheritance();
  {
    Session session(options, std::move(inheritance.lock));
    restoreNotifications(inheritance.notifications);
    allowRestarts(options);
    const int status = runUntilTerminated(session, options, inheritance);
    if (requestedRestart() == nullptr || status != 0) return status;
    inheritance.lock = session.takeLock();
    inheritance.notifications = storedNotifications();
  }
  executeAgain(*requestedRestart(), inheritance);
  std::fprintf(stderr, "springboard: the phone cannot restart: %s\n", std::strerror(errno));
  return cannotStart;
}

}  // namespace runner
