// The methods and settings that the loaded library reports about itself. Main thread.
#pragma once

#include <span>

#include "library/startup/inspection.hpp"

namespace runner {

// Return the installed methods and the settings. Both spans are empty if the library is not loaded. The library owns
// the entries.
std::span<const BrimInstalledMethod> installedMethods();
std::span<const BrimSetting> librarySettings();

}  // namespace runner
