// Hooks into the deallocation of objects. The hooks clear weak references and release associated values.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Hooks the last release and the deallocation of every object. Call this once, before the first association or weak
// reference. Main thread.
void installDeallocationHooks();

// Returns whether the current thread is releasing the object's last reference.
bool isDeallocating(id object);

}  // namespace foundation
