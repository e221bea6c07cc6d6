// The one place that knows which Objective-C runtime this is: GCC's on Linux, the phone's on arm64.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__APPLE__)
#include "device/include/objc_runtime.h"
#else
#include <objc/message.h>
#include <objc/runtime.h>
// The header's macros would swallow ordinary words of C++ code.
#undef YES
#undef NO
#undef nil
#undef Nil
#endif

extern "C" {
// Not in GCC's runtime; the simulator supplies them under the phone's names.
void objc_setAssociatedObject(id object, const void* key, id value, std::uintptr_t policy);
id objc_getAssociatedObject(id object, const void* key);
void objc_removeAssociatedObjects(id object);
id objc_storeWeak(id* location, id object);
id objc_loadWeakRetained(id* location);
void objc_destroyWeak(id* location);

// Replaces the implementation of a method, found in the class or inherited, and keeps the replaced one at `replaced`.
void MSHookMessageEx(Class target, SEL selector, IMP replacement, IMP* replaced);

void* _Block_copy(const void* block);
void _Block_release(const void* block);
extern void* _NSConcreteStackBlock[];
}

namespace objc {

enum class AssociationPolicy : std::uintptr_t { Assign = 0, RetainNonatomic = 1, CopyNonatomic = 3 };

// Functions of any signature as method implementations, and back. The two steps say that the change of type is meant.
template <class Function>
IMP toImplementation(Function* function) {
  return reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(function));
}
template <class Function>
Function* fromImplementation(IMP implementation) {
  return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(implementation));
}

// Where a message to the receiver goes.
#if defined(__APPLE__)
inline IMP implementationFor(id, SEL) { return toImplementation(&objc_msgSend); }
#else
inline IMP implementationFor(id receiver, SEL selector) { return objc_msg_lookup(receiver, selector); }
#endif

// The method of `superclass` for a message sent from within one of its direct subclasses.
inline IMP implementationInClass(Class superclass, SEL selector) {
  return class_getMethodImplementation(superclass, selector);
}

}  // namespace objc
