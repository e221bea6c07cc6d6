// This program defines the hook function. The dynamic linker resolves the calls of the library to this definition.
#include "tests/library/platform_methods.hpp"

#include <dlfcn.h>

#include <cstring>

namespace test {

namespace {

struct Replacement {
  const char* className;
  const char* selector;
  IMP implementation;
  IMP replaced;
};

Replacement current;

}  // namespace

void replaceBelowHook(const char* className, const char* selector, IMP replacement) {
  current = {className, selector, replacement, nullptr};
}

IMP replacedBelowHook() { return current.replaced; }

}  // namespace test

extern "C" void MSHookMessageEx(Class target, SEL selector, IMP replacement, IMP* replaced) {
  static auto* const next = reinterpret_cast<objc::HookFunction*>(dlsym(RTLD_NEXT, "MSHookMessageEx"));
  next(target, selector, replacement, replaced);
  test::Replacement& current = test::current;
  if (current.implementation == nullptr || current.replaced != nullptr || target == nullptr) return;
  if (std::strcmp(class_getName(target), current.className) != 0 ||
      std::strcmp(sel_getName(selector), current.selector) != 0)
    return;
  current.replaced = *replaced;
  *replaced = current.implementation;
}
