// The end of objects: where weak references are cleared and associated values let go.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Watches every object's last release and deallocation. Once, before objects are associated or referred to weakly.
void installDeallocation();

// Whether this thread is releasing the object's last reference.
bool isDeallocating(id object);

}  // namespace foundation
