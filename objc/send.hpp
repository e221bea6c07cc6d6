// Sends Objective-C messages from C++. The selector is a template argument. The caller specifies the type of the
// result. The types of the arguments are deduced from the values that the caller passes.
#pragma once

#include <type_traits>

#include "objc/cached_pointer.hpp"
#include "objc/calling_convention.hpp"
#include "objc/encoding.hpp"
#include "objc/fixed_string.hpp"
#include "objc/runtime.hpp"
#if defined(BRIM_CHECK_ENCODINGS)
#include "objc/encoding_check.hpp"
#endif

namespace objc {

// Returns the selector with this name.
template <FixedString name>
SEL selector() {
  static CachedPointer<SEL> registered;
  return registered.getOrFind([] { return sel_registerName(TextOf<name>::text); });
}

// Returns the class with this name, or null if the process has no such class. A result other than null is cached; a
// missing class is looked up again at the next call.
template <FixedString name>
Class lookUpClass() {
  static CachedPointer<Class> found;
  return found.getOrFind([] { return reinterpret_cast<Class>(objc_getClass(TextOf<name>::text)); });
}

namespace detail {

// With GCC's runtime, any non-zero byte is a true BOOL. Reading such a byte as a C++ bool would be undefined behavior.
template <class Result>
using AbiResult = std::conditional_t<std::is_same_v<Result, bool>, unsigned char, Result>;

template <class Result, class... Arguments>
Result call(IMP implementation, id receiver, SEL selector, Arguments... arguments) {
  static_assert(isPassedAlike(MethodEncoding<Result, Arguments...>::value.data()));
  const auto function = fromImplementation<AbiResult<Result>(id, SEL, Arguments...)>(implementation);
  if constexpr (std::is_void_v<Result>) {
    function(receiver, selector, arguments...);
  } else if constexpr (std::is_same_v<Result, bool>) {
    return function(receiver, selector, arguments...) != 0;
  } else {
    return function(receiver, selector, arguments...);
  }
}

inline id toId(const void* object) { return static_cast<id>(const_cast<void*>(object)); }

}  // namespace detail

// Sends a message. A message to nil does nothing and returns nil, zero or false. A returned object is borrowed unless
// the platform's naming rules (alloc, copy, init, new) say that the caller owns it.
template <class Result, FixedString name, class... Arguments>
Result send(const void* receiver, Arguments... arguments) {
  static_assert(name.count(':') == sizeof...(Arguments), "one argument for each colon of the selector");
  if (receiver == nullptr) {
    if constexpr (std::is_void_v<Result>) {
      return;
    } else {
      return Result{};
    }
  } else {
    const id object = detail::toId(receiver);
    const SEL registered = selector<name>();
#if defined(BRIM_CHECK_ENCODINGS)
    detail::checkEncoding(object, registered, MethodEncoding<Result, Arguments...>::value.data());
#endif
    return detail::call<Result>(implementationFor(object, registered), object, registered, arguments...);
  }
}

// Returns whether the objects of the class have the method. Returns false for null.
template <FixedString name>
bool hasMethod(Class examined) {
  return examined != nullptr && class_getInstanceMethod(examined, selector<name>()) != nullptr;
}

// Sends a message that is not part of the platform's public interface, so a system version can lack it. If the receiver
// does not respond to the message, does nothing and returns nil, zero or false.
template <class Result, FixedString name, class... Arguments>
Result sendIfAvailable(const void* receiver, Arguments... arguments) {
  const bool isAvailable = send<bool, "respondsToSelector:">(receiver, selector<name>());
  return send<Result, name>(isAvailable ? receiver : nullptr, arguments...);
}

// Sends the message to super, as a method of the class named `className` would. The receiver must not be nil.
template <FixedString className, class Result, FixedString name, class... Arguments>
Result sendSuper(const void* receiver, Arguments... arguments) {
  static_assert(name.count(':') == sizeof...(Arguments), "one argument for each colon of the selector");
  static const Class superclass = class_getSuperclass(lookUpClass<className>());
  const SEL registered = selector<name>();
  return detail::call<Result>(implementationInClass(superclass, registered), detail::toId(receiver), registered,
                              arguments...);
}

// The base of all platform classes. A pointer to a platform class is the Objective-C object itself. Such objects are
// never created or destroyed by value.
class Object {
 public:
  Object() = delete;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

 protected:
  ~Object() = default;
};

// Declares a platform class: its name and its superclass.
template <FixedString name, class Super>
class Interface : public Super {
 public:
  using Superclass = Super;
  static constexpr const char* className = TextOf<name>::text;
  // The class object, or null if this process has no class with this name.
  static Class classObject() { return lookUpClass<name>(); }
};

// Casts the object to Type if it is an instance of that class or of a subclass. Otherwise, and for nil, returns null.
// Use this function for untrusted values, whose type is unknown.
template <class Type>
Type* as(const void* object) {
  if (object == nullptr || Type::classObject() == nullptr) return nullptr;
  const bool matches = send<bool, "isKindOfClass:">(object, Type::classObject());
  return matches ? static_cast<Type*>(const_cast<void*>(object)) : nullptr;
}

}  // namespace objc
