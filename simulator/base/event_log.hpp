// What the platform saw, in the order in which it saw it: the list that a script reads and empties.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace base {

// Appends {"event": name, …fields}. Fields are an object; what is null in it is kept as null. Any thread.
void recordEvent(std::string_view name, const nlohmann::ordered_json& fields);

// The events since the last call, an array; the list is empty afterwards. Any thread.
nlohmann::ordered_json takeEvents();

// How many events of that name have been recorded since the process began, taken or not. Any thread.
std::size_t countOfEvents(std::string_view name);
// The same for events of any name.
std::size_t countOfEvents();

}  // namespace base
