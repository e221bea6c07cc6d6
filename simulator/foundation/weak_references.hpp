// Weak references, under the platform's names (objc/runtime.hpp): null from the moment their object begins to go away.
#pragma once

#include "objc/runtime.hpp"

namespace foundation {

// Makes every weak reference to an object that is going away null. Any thread.
void clearWeakReferences(id object);

enum class ReleaseOutcome { Released, LastReference };
// Releases one reference by the method `release`, unless it is the last one: then weak references to the object are
// null from here on and the reference is still the caller's to release. Any thread.
ReleaseOutcome releaseUnlessLast(id object, SEL selector, void (*release)(id, SEL));

}  // namespace foundation
