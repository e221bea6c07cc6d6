// Values associated with objects, under the platform's names (objc/machine.hpp). Any thread.
#pragma once

#include "objc/machine.hpp"

namespace foundation {

// Lets go of what is associated with an object that is going away.
void forgetAssociations(id object);

}  // namespace foundation
