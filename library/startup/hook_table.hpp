// The table of the library's changes to the platform's classes: hooks, added methods and added properties. Main thread.
#pragma once

#include <span>

#include "objc/hook_installation.hpp"

// Installs every row of the table, in order. Call this function once, at startup.
void installHookTable(objc::HookFunction* hookFunction);

// Returns the installed methods, in order. The list is empty before installHookTable is called. The entries are valid
// until the process ends.
std::span<const objc::InstalledMethod> installedMethods();
