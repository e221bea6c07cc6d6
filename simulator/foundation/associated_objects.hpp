// Associated objects. The platform's functions for them are declared in objc/runtime.hpp. Any thread.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Removes and releases all values associated with an object that is being deallocated.
void removeAssociations(id object);

}  // namespace foundation
