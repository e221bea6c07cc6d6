// The interface of the Objective-C runtime: GCC's on Linux, the phone's on arm64. Only this header distinguishes the
// two.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__APPLE__)
#include "device/include/objc_runtime.h"
#else
#include <objc/message.h>
#include <objc/runtime.h>
// The header defines macros with names that C++ code uses as well.
#undef YES
#undef NO
#undef nil
#undef Nil
#endif

extern "C" {
// GCC's runtime lacks these functions. The simulator defines them with the names they have on the phone.
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

// Conversions between functions of any signature and method implementations. The intermediate cast keeps the compiler
// from warning about incompatible function types.
template <class Function>
IMP toImplementation(Function* function) {
  return reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(function));
}
template <class Function>
Function* fromImplementation(IMP implementation) {
  return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(implementation));
}

// The function to call in order to send the message to the receiver.
#if defined(__APPLE__)
inline IMP implementationFor(id, SEL) { return toImplementation(&objc_msgSend); }
#else
inline IMP implementationFor(id receiver, SEL selector) { return objc_msg_lookup(receiver, selector); }
#endif

// The implementation that `superclass` defines or inherits. Subclasses use it to send a message to super.
inline IMP implementationInClass(Class superclass, SEL selector) {
  return class_getMethodImplementation(superclass, selector);
}

}  // namespace objc
