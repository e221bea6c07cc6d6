// HBPreferences, and writing preferences the way the settings pane does.
#pragma once

#include <optional>
#include <string>

#include "platform/hb_preferences.hpp"

namespace foundation {

void defineHBPreferences();

// Stores a value of a property list's types, nil to remove it, in the defaults database, where every process sees it;
// variables of this one are up to date on return. The answer is the reason of a failure, nothing on success. Main
// thread.
[[nodiscard]] std::optional<std::string> writePreference(const std::string& domain, const std::string& key,
                                                         const NSObject* value);

}  // namespace foundation
