// Objective-C classes defined in C++. The methods are plain functions. The state of an object is one C++ struct, which
// is constructed and destroyed with the object.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <span>

#include "objc/hook.hpp"
#include "objc/implementation.hpp"
#include "objc/send.hpp"

namespace objc {

// Maps a class to the struct that contains the state of its objects. Specialize this template next to the definition of
// the struct.
template <class Type>
struct StateOf;
template <class Type>
using State = typename StateOf<Type>::Type;

// One method of a class definition or of a category.
struct MethodEntry {
  const char* selector;
  const char* encoding;
  IMP (*implementation)();
  Level level;
};

// The method with the selector `name`. A message calls `function` with the receiver and the arguments of the message.
template <FixedString name, auto function, Level level = Level::Instance>
constexpr MethodEntry method() {
  using Method = MethodOf<function>;
  static_assert(name.count(':') == Method::argumentCount, "one argument for each colon of the selector");
  return {TextOf<name>::text, Method::encoding.data(), &Method::implementation, level};
}

template <FixedString name, auto function>
constexpr MethodEntry classMethod() {
  return method<name, function, Level::Class>();
}

// A member of the state struct that the runtime lists as a separate instance variable. A class lists either no members
// or all members, in the order of their declaration.
struct FieldEntry {
  const char* name;
  const char* encoding;
  std::size_t size;
  std::size_t alignment;
  std::size_t offset;
};

template <class Type>
struct FieldEncoding : TypeEncoding<Type> {};
template <class Type>
class Ref;
template <class Type>
class Weak;
template <class Type>
struct FieldEncoding<Ref<Type>> : EncodingText<"@"> {};
template <class Type>
struct FieldEncoding<Weak<Type>> : EncodingText<"@"> {};

// The entry of a member of type `Type` at this offset in the state struct, in bytes.
template <class Type>
constexpr FieldEntry field(const char* name, std::size_t offset) {
  return {name, FieldEncoding<Type>::value.data(), sizeof(Type), alignof(Type), offset};
}

namespace detail {

// The offset of the state struct within an object, in bytes.
template <class Type>
struct StateOffset {
  static inline std::ptrdiff_t offset = 0;
};

template <class Type, class Struct>
Struct* stateAt(const void* object) {
  return reinterpret_cast<Struct*>(static_cast<char*>(const_cast<void*>(object)) + StateOffset<Type>::offset);
}

template <class Type, class Struct>
struct Lifecycle {
  static inline Class superclass = nullptr;
  static inline Class superMetaclass = nullptr;

  static id allocate(Class self, SEL selector, void* zone) {
    const id object =
        call<id>(implementationInClass(superMetaclass, selector), toId(reinterpret_cast<void*>(self)), selector, zone);
    if (object != nullptr) new (stateAt<Type, Struct>(object)) Struct();
    return object;
  }
  static void deallocate(id self, SEL selector) {
    stateAt<Type, Struct>(self)->~Struct();
    call<void>(implementationInClass(superclass, selector), self, selector);
  }
};

inline std::uint8_t binaryLogarithm(std::size_t alignment) {
  return static_cast<std::uint8_t>(__builtin_ctzll(alignment));
}

inline void addMethods(Class target, std::span<const MethodEntry> methods) {
  Class metaclass = reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(target)));
  for (const MethodEntry& entry : methods)
    class_addMethod(entry.level == Level::Class ? metaclass : target, sel_registerName(entry.selector),
                    entry.implementation(), entry.encoding);
}

}  // namespace detail

// The state of an object of class Type or of one of its subclasses. The object must not be nil.
template <class Type>
State<Type>& state(const Type* object) {
  return *detail::stateAt<Type, State<Type>>(object);
}

// Defines the class Type::className as a subclass of Type's superclass. Its objects have no additional state. Returns
// false, and defines nothing, if the superclass is missing or the process already has a class of that name.
template <class Type>
[[nodiscard]] bool tryToDefineClass(std::span<const MethodEntry> methods) {
  Class superclass = Type::Superclass::classObject();
  Class defined = superclass == nullptr ? nullptr : objc_allocateClassPair(superclass, Type::className, 0);
  if (defined == nullptr) return false;
  detail::addMethods(defined, methods);
  objc_registerClassPair(defined);
  return true;
}

// Defines the class and adds State<Type> to each of its objects. +alloc constructs the state, and -dealloc destroys it.
// If `fields` is empty, the runtime lists the whole state as one instance variable. Also returns false if the runtime
// rejects an instance variable or lays out the variables differently from the struct. Then do not use the class.
template <class Type>
[[nodiscard]] bool tryToDefineClassWithState(std::span<const MethodEntry> methods,
                                             std::span<const FieldEntry> fields = {}) {
  using Struct = State<Type>;
  using Lifecycle = detail::Lifecycle<Type, Struct>;
  Class superclass = Type::Superclass::classObject();
  Class defined = superclass == nullptr ? nullptr : objc_allocateClassPair(superclass, Type::className, 0);
  if (defined == nullptr) return false;

  // The instance variable that contains the whole state is named after the class, because its name must differ from
  // those in the superclasses. The runtime rejects duplicates.
  static constexpr FieldEntry whole = {Type::className, "?", sizeof(Struct), alignof(Struct), 0};
  if (fields.empty()) fields = std::span<const FieldEntry>(&whole, 1);
  for (const FieldEntry& entry : fields)
    if (!class_addIvar(defined, entry.name, entry.size, detail::binaryLogarithm(entry.alignment), entry.encoding))
      return false;

  Lifecycle::superclass = superclass;
  Lifecycle::superMetaclass = reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(superclass)));
  class_addMethod(reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(defined))),
                  sel_registerName("allocWithZone:"), toImplementation(&Lifecycle::allocate), "@@:^v");
  class_addMethod(defined, sel_registerName("dealloc"), toImplementation(&Lifecycle::deallocate), "v@:");
  detail::addMethods(defined, methods);
  objc_registerClassPair(defined);

  const auto offsetOf = [defined](const FieldEntry& entry) {
    return ivar_getOffset(class_getInstanceVariable(defined, entry.name));
  };
  const std::ptrdiff_t base = offsetOf(fields.front()) - static_cast<std::ptrdiff_t>(fields.front().offset);
  detail::StateOffset<Type>::offset = base;
  for (const FieldEntry& entry : fields)
    if (offsetOf(entry) != base + static_cast<std::ptrdiff_t>(entry.offset)) return false;
  return true;
}

// These two functions abort the process if the class cannot be defined.
template <class Type>
void defineClass(std::span<const MethodEntry> methods) {
  if (!tryToDefineClass<Type>(methods)) __builtin_trap();
}
template <class Type>
void defineClassWithState(std::span<const MethodEntry> methods, std::span<const FieldEntry> fields = {}) {
  if (!tryToDefineClassWithState<Type>(methods, fields)) __builtin_trap();
}

// Adds methods to an existing class. Does nothing if the class is null.
inline void addCategory(Class target, std::span<const MethodEntry> methods) {
  if (target != nullptr) detail::addMethods(target, methods);
}

}  // namespace objc
