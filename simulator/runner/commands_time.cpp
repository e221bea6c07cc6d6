// Commands that let time pass: the stepped clock's, or real time for what other threads and processes do.
#include <cmath>

#include "simulator/base/event_log.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/runner/await_events.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/deadline.hpp"
#include "simulator/springboard/shell/clocks.hpp"
#include "simulator/url_loading/request_loader.hpp"

namespace runner {

namespace {

constexpr double maxWait = 31'536'000;
constexpr double maxRealWait = 600;
constexpr double defaultRealWait = 10;
// How long one look for news from outside may take.
constexpr double secondsOfOneLook = 0.01;
// The phone is idle when no server is waited for and nothing has come from outside for this long.
constexpr double quietSeconds = 0.2;

bool isNumberUpTo(const Json& value, double most) {
  return value.is_number() && value.get<double>() >= 0 && value.get<double>() <= most;
}

const FieldType steppedSeconds = {"a number of seconds from 0 to a year (31536000)",
                                  [](const Json& value) { return isNumberUpTo(value, maxWait); }};
const FieldType realSeconds = {"a number of seconds from 0 to 600",
                               [](const Json& value) { return isNumberUpTo(value, maxRealWait); }};
constexpr const char* awaitables[] = {"photo", "message", "read", "banner", "http", "idle"};
const FieldType awaitable = {"photo, message, read, banner, http or idle",
                             [](const Json& value) { return isOneOf(value, awaitables); }};

Json wait(const Json& command) {
  foundation::pumpFoundation();
  foundation::stepClock(command["seconds"].get<double>());
  foundation::pumpFoundation();
  springboard::refreshClocks();
  return nullptr;
}

void awaitEvent(const std::string& kind, const Deadline& deadline) {
  foundation::letNewsIn(secondsOfOneLook);
  while (!answerNextEvent(kind)) {
    if (deadline.hasPassed()) throw CommandError("no " + kind + " came within the limit");
    foundation::letNewsIn(secondsOfOneLook);
  }
}

void awaitQuiet(const Deadline& deadline) {
  Deadline quiet(quietSeconds);
  for (std::size_t seen = base::eventCount(); !quiet.hasPassed();) {
    if (deadline.hasPassed()) throw CommandError("the phone was not idle within the limit");
    foundation::letNewsIn(secondsOfOneLook);
    if (base::eventCount() == seen && url_loading::pendingRequestCount() == 0) continue;
    seen = base::eventCount();
    quiet = Deadline(quietSeconds);
  }
}

Json await(const Json& command) {
  const std::string kind = command["for"];
  const Deadline deadline(command.value("seconds", defaultRealWait));
  if (kind == "idle") {
    awaitQuiet(deadline);
  } else {
    awaitEvent(kind, deadline);
  }
  return nullptr;
}

}  // namespace

std::span<const Command> timeCommands() {
  static constexpr Field waitFields[] = {{"seconds", steppedSeconds, Need::Required}};
  static constexpr Field awaitFields[] = {{"for", awaitable, Need::Required}, {"seconds", realSeconds}};
  static constexpr Command commands[] = {
      {"wait", waitFields, &wait, "the clock is stepped: timers, the main queue, animations at 60 frames a second"},
      {"await", awaitFields, &await, "real time passes until such an event has come, or all is quiet"},
  };
  return commands;
}

}  // namespace runner
