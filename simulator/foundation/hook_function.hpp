// MSHookMessageEx, the hook function of the phone's code-injection loader. Main thread.
#pragma once

#include "objc/hook_installation.hpp"

// If the method is inherited, the original that the function stores is the current implementation of the superclass.
// Therefore, hooks of a superclass must be installed before hooks of its subclasses. Subclasses that inherit the method
// also inherit the replacement. The function does nothing if the class or the selector is null or the class has no such
// method. `replaced` can be null.
extern "C" objc::HookFunction MSHookMessageEx;
