// The event log: what happened in the process, in order. A script reads and clears it. Any thread.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace base {

// Appends the event {"event": name, …fields}. `fields` must be an object. Null members stay in the event.
void recordEvent(std::string_view name, const nlohmann::ordered_json& fields);

// Returns the events since the previous call as an array and clears the log.
nlohmann::ordered_json takeEvents();

// The number of events of that name since the process started, including those already taken.
std::size_t eventCount(std::string_view name);
// The number of all events since the process started.
std::size_t eventCount();

}  // namespace base
