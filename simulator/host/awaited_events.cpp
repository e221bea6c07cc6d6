#include "simulator/host/awaited_events.hpp"

#include <map>

#include "simulator/host/event_log.hpp"

namespace host {

namespace {

std::size_t& answeredEvents(const std::string& kind) {
  static std::map<std::string, std::size_t> answered;
  return answered[kind];
}

}  // namespace

bool answerNextEvent(const std::string& kind) {
  std::size_t& answered = answeredEvents(kind);
  if (answered == countOfEvents(kind)) return false;
  ++answered;
  return true;
}

void answerAllEvents(const std::string& kind) { answeredEvents(kind) = countOfEvents(kind); }

}  // namespace host
