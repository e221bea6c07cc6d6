// The hook function of the phone's code-injection loader.
#pragma once

#include "objc/hook.hpp"

// Main thread. For an inherited method the original implementation is the superclass's current one, so hooks on
// superclasses must be installed first. A subclass that inherits the method gets the replacement too. Does nothing if
// the class, the selector or the method is missing. `replaced` can be null.
extern "C" objc::HookFunction MSHookMessageEx;
