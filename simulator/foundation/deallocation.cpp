#include "simulator/foundation/deallocation.hpp"

#include <dlfcn.h>

#include "objc/send.hpp"
#include "simulator/foundation/associated_objects.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/weak_references.hpp"

namespace foundation {

namespace {

using Method = void (*)(id, SEL);

Method originalRelease = nullptr;
Method originalDealloc = nullptr;

// An object whose last reference this thread is releasing. Releases can be nested, so these records form a list that
// begins with the innermost release.
struct Deallocation;
thread_local const Deallocation* innermost = nullptr;

struct Deallocation {
  explicit Deallocation(id deallocated) : object(deallocated), outer(innermost) { innermost = this; }
  Deallocation(const Deallocation&) = delete;
  Deallocation& operator=(const Deallocation&) = delete;
  ~Deallocation() { innermost = outer; }

  id object;
  const Deallocation* outer;
};

void release(id self, SEL selector) {
  if (releaseUnlessLast(self, selector, originalRelease) == ReleaseOutcome::Released) return;
  const Deallocation deallocation(self);
  originalRelease(self, selector);
}

void dealloc(id self, SEL selector) {
  clearWeakReferences(self);
  removeAssociations(self);
  originalDealloc(self, selector);
}

Method replace(SEL selector, Method replacement) {
  IMP original = nullptr;
  MSHookMessageEx(objc::lookUpClass<"NSObject">(), selector, objc::toImplementation(replacement), &original);
  return objc::fromImplementation<void(id, SEL)>(original);
}

}  // namespace

bool isDeallocating(id object) {
  for (const Deallocation* each = innermost; each != nullptr; each = each->outer)
    if (each->object == object) return true;
  return false;
}

void installDeallocationHooks() {
  originalRelease = replace(objc::selector<"release">(), &release);
  originalDealloc = replace(objc::selector<"dealloc">(), &dealloc);
}

}  // namespace foundation

// This function deallocates Foundation's strings, numbers, data, arrays and dictionaries, which do not use NSObject's
// -dealloc.
extern "C" void NSDeallocateObject(id object) {
  static const auto original = reinterpret_cast<void (*)(id)>(dlsym(RTLD_NEXT, "NSDeallocateObject"));
  foundation::clearWeakReferences(object);
  foundation::removeAssociations(object);
  original(object);
}
