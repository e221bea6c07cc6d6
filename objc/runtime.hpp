// The C interface of the Objective-C runtime: GCC's runtime on Linux, the phone's runtime on arm64. This header hides
// the differences between the two, except for the layout of blocks (objc/block.hpp).
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__APPLE__)
#include "device/include/objc_runtime.h"
#else
#include <objc/message.h>
#include <objc/runtime.h>
// GCC's headers define these names as macros. The C++ code needs the same names.
#undef YES
#undef NO
#undef nil
#undef Nil
#endif

extern "C" {
// GCC's runtime lacks the following functions. The simulator defines them with the names they have on the phone.
void objc_setAssociatedObject(id object, const void* key, id value, std::uintptr_t policy);
id objc_getAssociatedObject(id object, const void* key);
void objc_removeAssociatedObjects(id object);
id objc_storeWeak(id* location, id object);
id objc_loadWeakRetained(id* location);
void objc_destroyWeak(id* location);

void* _Block_copy(const void* block);
void _Block_release(const void* block);
extern void* _NSConcreteStackBlock[];
}

namespace objc {

enum class AssociationPolicy : std::uintptr_t { Assign = 0, RetainNonatomic = 1, CopyNonatomic = 3 };

// Converts between functions of any signature and method implementations. The intermediate cast prevents a compiler
// warning about incompatible function types.
template <class Function>
IMP toImplementation(Function* function) {
  return reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(function));
}
template <class Function>
Function* fromImplementation(IMP implementation) {
  return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(implementation));
}

// Returns the function that must be called to send the message to the receiver.
#if defined(__APPLE__)
inline IMP implementationFor(id, SEL) { return toImplementation(&objc_msgSend); }
#else
inline IMP implementationFor(id receiver, SEL selector) { return objc_msg_lookup(receiver, selector); }
#endif

// Returns the implementation that `superclass` defines or inherits. Subclasses call this implementation to send a
// message to super.
inline IMP implementationInClass(Class superclass, SEL selector) {
  return class_getMethodImplementation(superclass, selector);
}

}  // namespace objc
