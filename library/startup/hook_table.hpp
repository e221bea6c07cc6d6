// The table of everything that the library changes in the platform's classes: hooks, added methods and added
// properties. Main thread.
#pragma once

#include <span>

#include "objc/hook.hpp"

// Installs every row, in order. Call once, at start-up.
void installHookTable(objc::HookFunction* hookFunction);

// The installed methods, in order. Empty before installHookTable. Valid until the process ends.
std::span<const objc::InstalledMethod> installedMethods();
