// Weak references. objc/runtime.hpp declares the platform's functions for them. A weak reference becomes null when the
// deallocation of its object begins.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Sets all weak references to `object`, which is being deallocated, to null. Any thread.
void clearWeakReferences(id object);

enum class ReleaseOutcome { Released, LastReference };
// Releases one reference to the object with the function `release`, unless it is the last reference. For the last
// reference, sets the weak references to the object to null, and does not release the object; the caller must do so.
// Any thread.
ReleaseOutcome releaseUnlessLast(id object, SEL selector, void (*release)(id, SEL));

}  // namespace foundation
