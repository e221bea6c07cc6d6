// The event log: a chronological list of the events in the process. A script reads and clears it. Any thread.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace base {

// Appends the event {"event": name, …fields}. `fields` must be a JSON object. Members whose value is null are included.
void recordEvent(std::string_view name, const nlohmann::ordered_json& fields);

// Returns the events since the previous call as an array and clears the log.
nlohmann::ordered_json takeEvents();

// Makes the log store only the latest `count` events. By default, the log stores all events, because a script can read
// them at its end. If events have been discarded, the first event that takeEvents returns is
// {"event":"discarded","count": …}.
void limitEventLog(std::size_t count);

// Returns the number of events with this name since the process started, including those already taken.
std::size_t eventCount(std::string_view name);
// Returns the number of all events since the process started, including those already taken.
std::size_t eventCount();

}  // namespace base
