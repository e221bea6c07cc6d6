// The class HBPreferences, and a function that writes preferences as the settings pane does.
#pragma once

#include <optional>
#include <string>

#include "platform/hb_preferences.hpp"

namespace foundation {

// Defines the class HBPreferences. Call this once. Main thread.
void defineHBPreferences();

// Stores a value in the user-defaults database, where all processes read it. The value must be of a type that property
// lists support; nil removes the key. On return, the variables that this process has registered with HBPreferences have
// the new value. Returns a description of the error, or nothing on success. Main thread.
[[nodiscard]] std::optional<std::string> writePreference(const std::string& domain, const std::string& key,
                                                         const NSObject* value);

}  // namespace foundation
