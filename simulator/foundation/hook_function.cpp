// The hook function of the phone's code-injection loader. The replaced implementation of an inherited method is the
// superclass's at the time of the call: hooks on superclasses come first.
#include "objc/machine.hpp"

extern "C" void MSHookMessageEx(Class target, SEL selector, IMP replacement, IMP* replaced) {
  if (target == nullptr || selector == nullptr) return;
  const Method inherited = class_getInstanceMethod(target, selector);
  if (inherited == nullptr) return;
  const IMP original = method_getImplementation(inherited);
  if (replaced != nullptr) *replaced = original;
  class_replaceMethod(target, selector, replacement, method_getTypeEncoding(inherited));
}
