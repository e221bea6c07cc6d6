#include "simulator/base/event_log.hpp"

#include <deque>
#include <limits>
#include <map>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

namespace base {

namespace {

struct EventLog {
  std::mutex mutex;
  std::deque<nlohmann::ordered_json> events;
  std::size_t maxEvents = std::numeric_limits<std::size_t>::max();
  std::size_t discarded = 0;
  std::map<std::string, std::size_t, std::less<>> counts;
  std::size_t total = 0;
};

// The log is never destroyed, because other threads can still record events while the process exits.
EventLog& eventLog() {
  static EventLog& log = *new EventLog;
  return log;
}

void discardOldest(EventLog& log) {
  while (log.events.size() > log.maxEvents) {
    log.events.pop_front();
    ++log.discarded;
  }
}

}  // namespace

void recordEvent(std::string_view name, const nlohmann::ordered_json& fields) {
  nlohmann::ordered_json event = {{"event", name}};
  event.update(fields);
  EventLog& log = eventLog();
  const std::scoped_lock lock(log.mutex);
  log.events.push_back(std::move(event));
  discardOldest(log);
  ++log.counts[std::string(name)];
  ++log.total;
}

nlohmann::ordered_json takeEvents() {
  EventLog& log = eventLog();
  const std::scoped_lock lock(log.mutex);
  nlohmann::ordered_json taken = nlohmann::ordered_json::array();
  if (const std::size_t discarded = std::exchange(log.discarded, 0); discarded > 0)
    taken.push_back({{"event", "discarded"}, {"count", discarded}});
  for (nlohmann::ordered_json& event : log.events) taken.push_back(std::move(event));
  log.events.clear();
  return taken;
}

void limitEventLog(std::size_t count) {
  EventLog& log = eventLog();
  const std::scoped_lock lock(log.mutex);
  log.maxEvents = count;
  discardOldest(log);
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
