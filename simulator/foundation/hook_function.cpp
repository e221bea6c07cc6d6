#include "simulator/foundation/hook_function.hpp"

namespace {

bool isInherited(Class target, SEL selector, Method method) {
  Class superclass = class_getSuperclass(target);
  return superclass != nullptr && class_getInstanceMethod(superclass, selector) == method;
}

}  // namespace

extern "C" {

void __objc_update_dispatch_table_for_class(Class changed);

void MSHookMessageEx(Class target, SEL selector, IMP replacement, IMP* replaced) {
  if (target == nullptr || selector == nullptr) return;
  const Method method = class_getInstanceMethod(target, selector);
  if (method == nullptr) return;
  if (replaced != nullptr) *replaced = method_getImplementation(method);
  // An inherited method is added to the class, because method_setImplementation would change the superclass.
  if (isInherited(target, selector, method)) {
    class_addMethod(target, selector, replacement, method_getTypeEncoding(method));
  } else {
    method_setImplementation(method, replacement);
  }
  // The runtime updates only the dispatch table of this class, but those of its subclasses can contain copies.
  __objc_update_dispatch_table_for_class(target);
}

}  // extern "C"
