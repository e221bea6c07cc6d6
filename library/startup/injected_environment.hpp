// The software of other packages that the library needs on a phone: the preferences framework and the code-injection
// loader. A phone's packages are installed either in the root folder or in /var/jb. Main thread.
#pragma once

#include "objc/hook_installation.hpp"

// Loads the preferences framework, unless the process already has the framework's class HBPreferences.
void loadPreferences();

// Returns the loader's function that replaces methods, or null if the process has no loader and none is installed.
objc::HookFunction* findHookFunction();
