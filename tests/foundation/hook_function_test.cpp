#include <span>
#include <string>

#include "objc/class_definition.hpp"
#include "objc/ownership.hpp"
#include "objc/runtime.hpp"
#include "platform/ns_string.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

int one(NSObject*) { return 1; }
int two(NSObject*) { return 2; }
int nine(NSObject*) { return 9; }
int three(Class) { return 3; }

IMP originalImplementation = nullptr;
int allocations = 0;
int deallocations = 0;

int plusTen(id self, SEL selector) { return 10 + objc::detail::call<int>(originalImplementation, self, selector); }
int hundred(id, SEL) { return 100; }
void countedDealloc(id self, SEL selector) {
  ++deallocations;
  objc::detail::call<void>(originalImplementation, self, selector);
}
id countedAlloc(id self, SEL selector) {
  ++allocations;
  return objc::detail::call<id>(originalImplementation, self, selector);
}

Class metaclassOf(Class target) { return reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(target))); }
objc::Ref<NSObject> instanceOf(Class target) {
  return objc::adopt(objc::send<NSObject*, "init">(objc::send<id, "alloc">(target)));
}
int number(const NSObject* object) { return objc::send<int, "number">(object); }
int other(const NSObject* object) { return objc::send<int, "other">(object); }

Class makeClass(Class superclass, std::span<const objc::MethodEntry> methods) {
  static int count = 0;
  Class created = objc_allocateClassPair(superclass, ("BrimTestFamily" + std::to_string(++count)).c_str(), 0);
  objc::addCategory(created, methods);
  objc_registerClassPair(created);
  return created;
}

constexpr objc::MethodEntry parentMethods[] = {objc::method<"number", &one>(), objc::method<"other", &two>(),
                                               objc::classMethod<"shared", &three>()};
constexpr objc::MethodEntry grandchildMethods[] = {objc::method<"other", &nine>()};

// Each test hooks its own classes: a parent, its subclasses `child` and `sibling`, and a subclass of `child`.
class HookFunction : public RuntimeTest {
 protected:
  HookFunction() {
    originalImplementation = nullptr;
    allocations = 0;
    deallocations = 0;
  }

  static void hook(Class target, const char* selector, IMP replacement) {
    MSHookMessageEx(target, sel_registerName(selector), replacement, &originalImplementation);
  }

  Class parent = makeClass(NSObject::classObject(), parentMethods);
  Class child = makeClass(parent, {});
  Class grandchild = makeClass(child, grandchildMethods);
  Class sibling = makeClass(parent, {});
};

TEST_F(HookFunction, ReplacesAMethodAndReturnsTheOriginal) {
  const auto object = instanceOf(parent);
  EXPECT_EQ(number(object), 1);
  hook(parent, "number", objc::toImplementation(&plusTen));
  EXPECT_EQ(number(object), 11);
}

TEST_F(HookFunction, TakesEffectInSubclassesThatHaveAlreadyBeenCalled) {
  const auto object = instanceOf(grandchild);
  EXPECT_EQ(number(object), 1);
  hook(parent, "number", objc::toImplementation(&plusTen));
  EXPECT_EQ(number(object), 11);
}

TEST_F(HookFunction, TakesEffectInEverySubclassOfTheRootClass) {
  const auto text = objc::adopt(objc::send<NSObject*, "mutableCopy">("text"_ns));
  const auto before = objc::send<id, "self">(text.get());
  hook(NSObject::classObject(), "self", objc::toImplementation(+[](id, SEL) -> id { return nullptr; }));
  const auto during = objc::send<id, "self">(text.get());
  hook(NSObject::classObject(), "self", originalImplementation);
  EXPECT_NE(before, nullptr);
  EXPECT_EQ(during, nullptr);
}

TEST_F(HookFunction, InheritedMethodIsReplacedOnlyInTheClass) {
  EXPECT_EQ(number(instanceOf(parent)) + number(instanceOf(sibling)) + number(instanceOf(grandchild)), 3);
  hook(child, "number", objc::toImplementation(&plusTen));
  EXPECT_EQ(number(instanceOf(parent)), 1);
  EXPECT_EQ(number(instanceOf(sibling)), 1);
  EXPECT_EQ(number(instanceOf(child)), 11);
  EXPECT_EQ(number(instanceOf(grandchild)), 11);
}

TEST_F(HookFunction, DoesNotChangeOverridesOfSubclasses) {
  hook(parent, "other", objc::toImplementation(&hundred));
  EXPECT_EQ(other(instanceOf(grandchild)), 9);
  EXPECT_EQ(other(instanceOf(child)), 100);
}

TEST_F(HookFunction, KeepsTheTypeEncodingOfTheMethod) {
  hook(child, "number", objc::toImplementation(&plusTen));
  EXPECT_STREQ(method_getTypeEncoding(class_getInstanceMethod(child, sel_registerName("number"))), "i@:");
}

TEST_F(HookFunction, HooksClassMethodsThroughTheMetaclass) {
  EXPECT_EQ((objc::send<int, "shared">(grandchild)), 3);
  hook(metaclassOf(child), "shared", objc::toImplementation(&plusTen));
  EXPECT_EQ((objc::send<int, "shared">(child)), 13);
  EXPECT_EQ((objc::send<int, "shared">(grandchild)), 13);
  EXPECT_EQ((objc::send<int, "shared">(parent)), 3);
}

TEST_F(HookFunction, DoesNotAddAMissingMethod) {
  hook(parent, "noSuchMethod", objc::toImplementation(&plusTen));
  EXPECT_EQ(originalImplementation, nullptr);
  EXPECT_FALSE(respondsTo<"noSuchMethod">(instanceOf(parent)));
}

TEST_F(HookFunction, IgnoresANullClassOrSelector) {
  MSHookMessageEx(nullptr, sel_registerName("number"), objc::toImplementation(&plusTen), &originalImplementation);
  MSHookMessageEx(parent, nullptr, objc::toImplementation(&plusTen), &originalImplementation);
  EXPECT_EQ(originalImplementation, nullptr);
}

TEST_F(HookFunction, OriginalIsOptional) {
  MSHookMessageEx(parent, sel_registerName("number"), objc::toImplementation(&hundred), nullptr);
  EXPECT_EQ(number(instanceOf(parent)), 100);
}

TEST_F(HookFunction, CanHookDeallocation) {
  hook(child, "dealloc", objc::toImplementation(&countedDealloc));
  instanceOf(child);
  instanceOf(grandchild);
  instanceOf(parent);
  EXPECT_EQ(deallocations, 2);
}

TEST_F(HookFunction, CanHookAllocation) {
  hook(metaclassOf(child), "alloc", objc::toImplementation(&countedAlloc));
  instanceOf(child);
  instanceOf(grandchild);
  instanceOf(parent);
  EXPECT_EQ(allocations, 2);
}

}  // namespace
