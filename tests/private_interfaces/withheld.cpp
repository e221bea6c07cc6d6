// This program defines functions of the runtime and of the C library that the library calls. The dynamic linker
// resolves the calls to these definitions, which recognize the library by the address of the caller.
#include "tests/private_interfaces/withheld.hpp"

#include <dlfcn.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include "objc/block.hpp"
#include "objc/hook.hpp"
#include "objc/hook_installation.hpp"
#include "objc/runtime.hpp"
#include "platform/common_crypto.hpp"
#include "tests/support/library_code.hpp"

namespace test {

namespace {

const PrivateInterface* withheld;
const char* refusedClass;
std::vector<std::string> digested;
std::optional<unsigned> completionValue;
int processLookUps;
std::vector<std::string> unrecognized;

bool isWithheld(void* caller, InterfaceKind kind, std::string_view name) {
  return withheld != nullptr && withheld->kind == kind && name == withheld->name && isLibraryCode(caller);
}

bool isClassWithheld(void* caller, const char* name) {
  return withheld != nullptr && withheld->kind == InterfaceKind::PlatformClass &&
         std::strcmp(name, withheld->className) == 0 && isLibraryCode(caller);
}

// `examined` is the class of the receiver; for a class method, it is a metaclass.
bool isMethodWithheld(Class examined, SEL selector) {
  if (withheld == nullptr || std::strcmp(sel_getName(selector), withheld->name) != 0) return false;
  const bool isClassMethod = withheld->kind == InterfaceKind::ClassMethod;
  if (!isClassMethod && withheld->kind != InterfaceKind::InstanceMethod) return false;
  for (Class each = examined; each != nullptr; each = class_getSuperclass(each))
    if (std::strcmp(class_getName(each), withheld->className) == 0 && (class_isMetaClass(each) != 0) == isClassMethod)
      return true;
  return false;
}

// Returns the function that this program's function of the same name replaces.
template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

id doNothing(id, SEL) { return nullptr; }

BOOL respondsToSelector(id receiver, SEL selector, SEL examined) {
  if (isMethodWithheld(object_getClass(receiver), examined)) return 0;
  const IMP implementation = class_getMethodImplementation(object_getClass(receiver), selector);
  return objc::fromImplementation<BOOL(id, SEL, SEL)>(implementation)(receiver, selector, examined);
}

}  // namespace

const std::vector<PrivateInterface>& privateInterfaces() {
  static const std::vector<PrivateInterface> rows = {
#define BRIM_PRIVATE_INTERFACE(kind, className, name, since, until, requirement, effect) \
  {InterfaceKind::kind, className, name, since, until, Requirement::requirement, effect},
#include "library/startup/private_interface_list.hpp"
  };
  return rows;
}

std::vector<PrivateInterface> interfacesIn(App app) {
  std::vector<PrivateInterface> found;
  for (const PrivateInterface& interface : privateInterfaces()) {
    const std::string_view className = interface.className;
    const bool isOfMessages = className.starts_with("CK") || className.starts_with("IM");
    const bool isOfBoth = className == "NSDistributedNotificationCenter";
    if (isOfBoth || isOfMessages == (app == App::Messages)) found.push_back(interface);
  }
  return found;
}

std::string descriptionOf(const PrivateInterface& interface) {
  const std::string owner = interface.className;
  switch (interface.kind) {
    case InterfaceKind::PlatformClass:
      return interface.className;
    case InterfaceKind::InstanceMethod:
      return "-[" + owner + " " + interface.name + "]";
    case InterfaceKind::ClassMethod:
      return "+[" + owner + " " + interface.name + "]";
    case InterfaceKind::InstanceVariable:
      return owner + "." + interface.name;
    case InterfaceKind::Symbol:
      return interface.name;
  }
  return "";
}

std::string testName(const testing::TestParamInfo<PrivateInterface>& test) {
  std::string name = descriptionOf(test.param);
  for (char& character : name)
    if (std::isalnum(static_cast<unsigned char>(character)) == 0) character = '_';
  return name + "_" + std::to_string(test.index);
}

void withhold(const PrivateInterface& interface) { withheld = &interface; }

void refuseToDefine(const char* className) { refusedClass = className; }

void completeDismissalsWith(unsigned value) { completionValue = value; }

void completeDismissal(id, SEL, NSInteger, objc::Block<void(unsigned)>* completion) {
  if (completion != nullptr) (*completion)(*completionValue);
}

const std::vector<std::string>& digestedData() { return digested; }

const std::vector<std::string>& unrecognizedSelectors() { return unrecognized; }

}  // namespace test

extern "C" {

IMP objc_msg_lookup(id receiver, SEL selector) {
  static auto* const original = test::next<IMP(id, SEL)>("objc_msg_lookup");
  if (test::withheld == nullptr || receiver == nullptr || !test::isLibraryCode(__builtin_return_address(0)))
    return original(receiver, selector);
  if (std::strcmp(sel_getName(selector), "respondsToSelector:") == 0)
    return objc::toImplementation(&test::respondsToSelector);
  if (!test::isMethodWithheld(object_getClass(receiver), selector)) return original(receiver, selector);
  test::unrecognized.push_back(sel_getName(selector));
  return objc::toImplementation(&test::doNothing);
}

Method class_getInstanceMethod(Class examined, SEL selector) {
  static auto* const original = test::next<Method(Class, SEL)>("class_getInstanceMethod");
  if (test::isMethodWithheld(examined, selector) && test::isLibraryCode(__builtin_return_address(0))) return nullptr;
  return original(examined, selector);
}

Class objc_getClass(const char* name) {
  static auto* const original = test::next<Class(const char*)>("objc_getClass");
  return test::isClassWithheld(__builtin_return_address(0), name) ? nullptr : original(name);
}

Class objc_getMetaClass(const char* name) {
  static auto* const original = test::next<Class(const char*)>("objc_getMetaClass");
  return test::isClassWithheld(__builtin_return_address(0), name) ? nullptr : original(name);
}

Ivar class_getInstanceVariable(Class examined, const char* name) {
  static auto* const original = test::next<Ivar(Class, const char*)>("class_getInstanceVariable");
  if (test::isWithheld(__builtin_return_address(0), InterfaceKind::InstanceVariable, name)) return nullptr;
  return original(examined, name);
}

Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes) {
  static auto* const original = test::next<Class(Class, const char*, std::size_t)>("objc_allocateClassPair");
  if (test::refusedClass != nullptr && std::strcmp(name, test::refusedClass) == 0) return nullptr;
  return original(superclass, name, extraBytes);
}

void MSHookMessageEx(Class target, SEL selector, IMP replacement, IMP* replaced) {
  static auto* const original = test::next<objc::HookFunction>("MSHookMessageEx");
  original(target, selector, replacement, replaced);
  if (test::completionValue &&
      std::strcmp(sel_getName(selector), "dismissViewControllerWithTransition:completion:") == 0)
    *replaced = objc::toImplementation(&test::completeDismissal);
}

unsigned char* CC_MD5(const void* data, std::uint32_t length, unsigned char* digest) {
  static auto* const original = test::next<unsigned char*(const void*, std::uint32_t, unsigned char*)>("CC_MD5");
  if (test::isLibraryCode(__builtin_return_address(0)))
    test::digested.emplace_back(static_cast<const char*>(data), length);
  return original(data, length, digest);
}

// The library looks up symbols of the running process: first the hook function, later the server's queue. If the symbol
// is withheld, the library gets another library, which has neither of them.
void* dlopen(const char* path, int mode) noexcept {
  static auto* const original = test::next<void*(const char*, int)>("dlopen");
  if (path != nullptr || !test::isLibraryCode(__builtin_return_address(0))) return original(path, mode);
  const bool isFirst = ++test::processLookUps == 1;
  const bool isWithheld = test::withheld != nullptr && test::withheld->kind == InterfaceKind::Symbol &&
                          (!isFirst || std::strcmp(test::withheld->name, "MSHookMessageEx") == 0);
  return isWithheld ? original("libm.so.6", RTLD_LAZY) : original(path, mode);
}

}  // extern "C"
