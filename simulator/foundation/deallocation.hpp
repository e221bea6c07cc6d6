// Hooks into the deallocation of objects. They clear weak references and release associated objects.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Hooks the last release and the deallocation of every object. Call it once, before the first association or weak
// reference. Main thread.
void installDeallocationHooks();

// Whether the current thread is releasing the object's last reference.
bool isDeallocating(id object);

}  // namespace foundation
