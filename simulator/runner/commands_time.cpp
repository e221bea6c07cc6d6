// Commands that let time pass: either the time of the stepped clock, or real time, in which other threads and processes
// can cause events.
#include <cmath>

#include "simulator/base/event_log.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/consumed_events.hpp"
#include "simulator/runner/deadline.hpp"
#include "simulator/runner/waiting.hpp"
#include "simulator/url_loading/request_loader.hpp"

namespace runner {

namespace {

constexpr double maxWait = 31'536'000;
constexpr double maxRealWait = 600;
constexpr double defaultRealWait = 10;
constexpr double pollInterval = 0.01;
// The phone is idle if no request is in progress and no event has occurred for this number of real seconds.
constexpr double idleSeconds = 0.2;

bool isNumberUpTo(const Json& value, double max) {
  return value.is_number() && value.get<double>() >= 0 && value.get<double>() <= max;
}

const FieldType steppedSeconds = {"a number of seconds from 0 to a year (31536000)",
                                  [](const Json& value) { return isNumberUpTo(value, maxWait); }};
const FieldType realSeconds = {"a number of seconds from 0 to 600",
                               [](const Json& value) { return isNumberUpTo(value, maxRealWait); }};
constexpr const char* awaitables[] = {"photo", "message", "read", "banner", "http", "idle"};
const FieldType awaitable = {"photo, message, read, banner, http or idle",
                             [](const Json& value) { return isOneOf(value, awaitables); }};

Json wait(const Json& command) {
  letTimePass(command["seconds"].get<double>());
  return nullptr;
}

void awaitEvent(const std::string& kind, const Deadline& deadline) {
  awaitExternalEvents(pollInterval);
  while (!consumeEvent(kind)) {
    if (deadline.hasPassed()) throw CommandError("no " + kind + " event occurred within the time limit");
    awaitExternalEvents(pollInterval);
  }
}

void awaitIdle(const Deadline& deadline) {
  Deadline idle(idleSeconds);
  for (std::size_t count = base::eventCount(); !idle.hasPassed();) {
    if (deadline.hasPassed()) throw CommandError("the phone did not become idle within the time limit");
    awaitExternalEvents(pollInterval);
    // Counts the events last, because a request records its event before it ceases to be pending.
    if (url_loading::pendingRequestCount() == 0 && base::eventCount() == count) continue;
    count = base::eventCount();
    idle = Deadline(idleSeconds);
  }
}

Json await(const Json& command) {
  const std::string kind = command["for"];
  const Deadline deadline(command.value("seconds", defaultRealWait));
  if (kind == "idle") {
    awaitIdle(deadline);
  } else {
    awaitEvent(kind, deadline);
  }
  return nullptr;
}

}  // namespace

std::span<const Command> timeCommands() {
  static constexpr Field waitFields[] = {{"seconds", steppedSeconds, Presence::Required}};
  static constexpr Field awaitFields[] = {{"for", awaitable, Presence::Required}, {"seconds", realSeconds}};
  static constexpr Command commands[] = {
      {"wait", waitFields, &wait,
       "advance the clock; runs timers, the main queue, and animations at 60 frames a second"},
      {"await", awaitFields, &await, "let real time pass until the event occurs or, for idle, until the phone is idle"},
  };
  return commands;
}

}  // namespace runner
