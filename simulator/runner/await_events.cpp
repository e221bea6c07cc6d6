#include "simulator/runner/await_events.hpp"

#include <map>

#include "simulator/base/event_log.hpp"

namespace runner {

namespace {

std::size_t& answeredEvents(const std::string& kind) {
  static std::map<std::string, std::size_t> answered;
  return answered[kind];
}

}  // namespace

bool answerNextEvent(const std::string& kind) {
  std::size_t& answered = answeredEvents(kind);
  if (answered == base::eventCount(kind)) return false;
  ++answered;
  return true;
}

void answerAllEvents(const std::string& kind) { answeredEvents(kind) = base::eventCount(kind); }

}  // namespace runner
