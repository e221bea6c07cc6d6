// The class HBPreferences, and writing preferences as the settings pane does.
#pragma once

#include <optional>
#include <string>

#include "platform/hb_preferences.hpp"

namespace foundation {

// Defines the class. Main thread, once.
void defineHBPreferences();

// Stores a value in the user-defaults database, where all processes see it. The value must be of a type that property
// lists support; nil removes the key. On return, the variables registered in this process have the new value. Returns
// the reason of a failure, or nothing on success. Main thread.
[[nodiscard]] std::optional<std::string> writePreference(const std::string& domain, const std::string& key,
                                                         const NSObject* value);

}  // namespace foundation
