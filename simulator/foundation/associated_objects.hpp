// Values associated with objects, under the platform's names (objc/runtime.hpp). Any thread.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Lets go of what is associated with an object that is going away.
void forgetAssociations(id object);

}  // namespace foundation
