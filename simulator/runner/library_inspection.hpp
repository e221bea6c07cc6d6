// The methods and settings that the loaded library reports about itself. Main thread.
#pragma once

#include <span>

#include "library/startup/inspection.hpp"

namespace runner {

// Both are empty if the library is not loaded. The entries belong to the library.
std::span<const BrimInstalledMethod> installedMethods();
std::span<const BrimSetting> librarySettings();

}  // namespace runner
