// Weak references. The platform's functions for them are declared in objc/runtime.hpp. A weak reference becomes null
// when the deallocation of its object begins.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Sets all weak references to an object that is being deallocated to null. Any thread.
void clearWeakReferences(id object);

enum class ReleaseOutcome { Released, LastReference };
// Releases one reference with the function `release`, unless it is the last one. In that case it sets the weak
// references to the object to null and leaves the release to the caller. Any thread.
ReleaseOutcome releaseUnlessLast(id object, SEL selector, void (*release)(id, SEL));

}  // namespace foundation
