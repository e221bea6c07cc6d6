// Replaces methods of the platform below the hooks of the library. A hook of the library then calls the replacement
// instead of the platform's method. Main thread.
#pragma once

#include <string>

#include "objc/hook.hpp"
#include "simulator/foundation/hook_function.hpp"

namespace test {

// Replaces the original implementation of a method that the library hooks. Call this before the phone starts. The
// strings must have static storage duration.
void replaceBelowHook(const char* className, const char* selector, IMP replacement);

// The platform's method that was replaced. Valid after the phone has started.
IMP replacedBelowHook();

// Replaces an instance method, above the hook of the library if there is one. Call this after the phone has started.
// The first parameter of `function` is the replaced method; the receiver and the arguments of the message follow.
template <objc::FixedString selector, auto function>
void replaceMethod(Class target) {
  using Hook = objc::detail::HookOf<function>;
  MSHookMessageEx(target, objc::selector<selector>(), Hook::implementation(), &Hook::replaced);
}

}  // namespace test
