#include "simulator/host/awaited_events.hpp"

#include <map>
#include <utility>

#include "simulator/host/event_log.hpp"

namespace host {

namespace {

std::size_t& answeredEvents(const std::string& kind) {
  static std::map<std::string, std::size_t> answered;
  return answered[kind];
}

}  // namespace

bool answerNextEvent(const std::string& kind) {
  const std::size_t count = countOfEvents(kind);
  return std::exchange(answeredEvents(kind), count) != count;
}

void answerAllEvents(const std::string& kind) { answeredEvents(kind) = countOfEvents(kind); }

}  // namespace host
