// Associated objects. The platform's functions for them are declared in objc/machine.hpp. Any thread.
#pragma once

#include "objc/machine.hpp"

namespace foundation {

// Removes and releases all values associated with an object that is being deallocated.
void removeAssociations(id object);

}  // namespace foundation
