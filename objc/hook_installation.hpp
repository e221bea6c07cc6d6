// Installs the rows of a table of changes to platform classes: replaces or adds their methods. Main thread.
#pragma once

#include "objc/hook.hpp"

namespace objc {

// The result of installing one method of the table.
struct InstalledMethod {
  const char* className;
  const char* selector;
  const char* encoding;
  RowKind kind;
  bool effective;  // false if the process has no such class or the hook found no method to replace
};

// Replaces the implementation of a method that the class defines or inherits, and stores the original implementation at
// `replaced`. Leaves `replaced` unchanged if there is no such method.
using HookFunction = void(Class target, SEL selector, IMP replacement, IMP* replaced);

// Installs one method and returns the result. If this process does not have the class or the method to replace, nothing
// is installed and `effective` is false.
inline InstalledMethod install(const MethodRow& row, HookFunction* hookFunction) {
  Class target = reinterpret_cast<Class>(row.level == Level::Class ? objc_getMetaClass(row.className)
                                                                   : objc_getClass(row.className));
  const SEL selector = sel_registerName(row.selector);
  bool effective = false;
  if (row.kind == RowKind::Hook) {
    // This check is required because some code-injection loaders add the method if it is missing.
    if (target != nullptr && class_getInstanceMethod(target, selector) != nullptr) {
      hookFunction(target, selector, row.implementation, row.replaced);
      effective = *row.replaced != nullptr;
    }
  } else {
    effective = target != nullptr && class_addMethod(target, selector, row.implementation, row.encoding);
  }
  return {row.className, row.selector, row.encoding, row.kind, effective};
}

}  // namespace objc
