// Stores values that are associated with objects. objc/runtime.hpp declares the platform's functions for them. Any
// thread.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Removes and releases all values associated with `object`, which is being deallocated.
void removeAssociations(id object);

}  // namespace foundation
