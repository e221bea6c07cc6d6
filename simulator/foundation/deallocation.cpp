#include "simulator/foundation/deallocation.hpp"

#include <dlfcn.h>

#include "objc/send.hpp"
#include "simulator/foundation/associated_objects.hpp"
#include "simulator/foundation/weak_references.hpp"

namespace foundation {

namespace {

using Method = void (*)(id, SEL);

Method originalRelease = nullptr;
Method originalDealloc = nullptr;

// The objects whose last reference this thread is releasing, innermost first.
struct Dying;
thread_local const Dying* innermost = nullptr;

struct Dying {
  explicit Dying(id dyingObject) : object(dyingObject), outer(innermost) { innermost = this; }
  Dying(const Dying&) = delete;
  Dying& operator=(const Dying&) = delete;
  ~Dying() { innermost = outer; }

  id object;
  const Dying* outer;
};

void release(id self, SEL selector) {
  if (releaseUnlessLast(self, selector, originalRelease) == ReleaseOutcome::Released) return;
  const Dying dying(self);
  originalRelease(self, selector);
}

void dealloc(id self, SEL selector) {
  clearWeakReferences(self);
  forgetAssociations(self);
  originalDealloc(self, selector);
}

Method replace(SEL selector, Method replacement) {
  IMP original = nullptr;
  MSHookMessageEx(objc::lookUpClass<"NSObject">(), selector, objc::toImplementation(replacement), &original);
  return objc::fromImplementation<void(id, SEL)>(original);
}

}  // namespace

bool isDeallocating(id object) {
  for (const Dying* dying = innermost; dying != nullptr; dying = dying->outer)
    if (dying->object == object) return true;
  return false;
}

void installDeallocation() {
  originalRelease = replace(objc::selector<"release">(), &release);
  originalDealloc = replace(objc::selector<"dealloc">(), &dealloc);
}

}  // namespace foundation

// Foundation's strings, numbers, data, arrays and dictionaries end here without NSObject's -dealloc.
extern "C" void NSDeallocateObject(id object) {
  static const auto original = reinterpret_cast<void (*)(id)>(dlsym(RTLD_NEXT, "NSDeallocateObject"));
  foundation::clearWeakReferences(object);
  foundation::forgetAssociations(object);
  original(object);
}
