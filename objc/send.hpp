// Messages: the selector is a template argument, the types are the caller's.
#pragma once

#include <type_traits>

#include "objc/encoding.hpp"
#include "objc/fixed_string.hpp"
#include "objc/machine.hpp"
#include "objc/published.hpp"
#if defined(BRIM_CHECK_ENCODINGS)
#include "objc/encoding_check.hpp"
#endif

namespace objc {

// Registered once for each name.
template <FixedString name>
SEL selector() {
  static Published<SEL> registered;
  return registered.valueOr([] { return sel_registerName(TextOf<name>::text); });
}

// The class of that name, looked up at first use and kept; null while there is none.
template <FixedString name>
Class lookUpClass() {
  static Published<Class> found;
  return found.valueOr([] { return reinterpret_cast<Class>(objc_getClass(TextOf<name>::text)); });
}

namespace detail {

// GCC's runtime answers a BOOL as any non-zero byte; reading that as a C++ bool would be undefined.
template <class Result>
using WireResult = std::conditional_t<std::is_same_v<Result, bool>, unsigned char, Result>;

template <class Result, class... Arguments>
Result call(IMP implementation, id receiver, SEL selector, Arguments... arguments) {
  const auto function = fromImplementation<WireResult<Result>(id, SEL, Arguments...)>(implementation);
  if constexpr (std::is_void_v<Result>) {
    function(receiver, selector, arguments...);
  } else if constexpr (std::is_same_v<Result, bool>) {
    return function(receiver, selector, arguments...) != 0;
  } else {
    return function(receiver, selector, arguments...);
  }
}

inline id identifier(const void* object) { return static_cast<id>(const_cast<void*>(object)); }

}  // namespace detail

// A message to nil does nothing and gives a zero of its type. The result of a method that returns an object is
// borrowed, as the platform's naming rules have it.
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
    const id object = detail::identifier(receiver);
    const SEL registered = selector<name>();
#if defined(BRIM_CHECK_ENCODINGS)
    detail::checkEncoding(object, registered, MethodEncoding<Result, Arguments...>::value.data());
#endif
    return detail::call<Result>(implementationFor(object, registered), object, registered, arguments...);
  }
}

// The same message as the superclass of the class named `className` understands it.
template <FixedString className, class Result, FixedString name, class... Arguments>
Result sendSuper(const void* receiver, Arguments... arguments) {
  static_assert(name.count(':') == sizeof...(Arguments), "one argument for each colon of the selector");
  static const Class superclass = class_getSuperclass(lookUpClass<className>());
  const SEL registered = selector<name>();
  return detail::call<Result>(implementationInClass(superclass, registered), detail::identifier(receiver), registered,
                              arguments...);
}

// The base of every platform class: a pointer to one IS the object. Nothing is ever made or destroyed by value.
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
  // Null where this process has no such class.
  static Class classObject() { return lookUpClass<name>(); }
};

// The object as a T when it is one (or of a subclass), else null. For values from outside, whose type nobody vouches
// for.
template <class Type>
Type* as(const void* object) {
  if (object == nullptr || Type::classObject() == nullptr) return nullptr;
  const bool matches = send<bool, "isKindOfClass:">(object, Type::classObject());
  return matches ? static_cast<Type*>(const_cast<void*>(object)) : nullptr;
}

}  // namespace objc
