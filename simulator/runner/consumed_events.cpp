#include "simulator/runner/consumed_events.hpp"

#include <map>

#include "simulator/base/event_log.hpp"

namespace runner {

namespace {

std::size_t& consumedCount(const std::string& kind) {
  static std::map<std::string, std::size_t> counts;
  return counts[kind];
}

}  // namespace

bool consumeEvent(const std::string& kind) {
  std::size_t& consumed = consumedCount(kind);
  if (consumed == base::eventCount(kind)) return false;
  ++consumed;
  return true;
}

void consumeAllEvents(const std::string& kind) { consumedCount(kind) = base::eventCount(kind); }

}  // namespace runner
