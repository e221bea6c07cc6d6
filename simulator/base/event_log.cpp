#include "simulator/base/event_log.hpp"

#include <map>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>

namespace base {

namespace {

struct EventLog {
  std::mutex mutex;
  nlohmann::ordered_json events = nlohmann::ordered_json::array();
  std::map<std::string, std::size_t, std::less<>> counts;
  std::size_t total = 0;
};

// The log is never destroyed, because other threads can still record events while the process exits.
EventLog& eventLog() {
  static EventLog& log = *new EventLog;
  return log;
}

}  // namespace

void recordEvent(std::string_view name, const nlohmann::ordered_json& fields) {
  nlohmann::ordered_json event = {{"event", name}};
  event.update(fields);
  EventLog& log = eventLog();
  const std::scoped_lock lock(log.mutex);
  log.events.push_back(std::move(event));
  ++log.counts[std::string(name)];
  ++log.total;
}

nlohmann::ordered_json takeEvents() {
  EventLog& log = eventLog();
  const std::scoped_lock lock(log.mutex);
  return std::exchange(log.events, nlohmann::ordered_json::array());
}

std::size_t eventCount(std::string_view name) {
  EventLog& log = eventLog();
  const std::scoped_lock lock(log.mutex);
  const auto found = log.counts.find(name);
  return found == log.counts.end() ? 0 : found->second;
}

std::size_t eventCount() {
  EventLog& log = eventLog();
  const std::scoped_lock lock(log.mutex);
  return log.total;
}

}  // namespace base
