// Properties whose values are members of the state struct of a class.
#pragma once

#include <span>

#include "objc/class_definition.hpp"
#include "objc/ownership.hpp"

namespace objc {

// The accessors of a property. The setter of a read-only property has a null selector.
struct PropertyEntry {
  MethodEntry getter;
  MethodEntry setter;
};

namespace detail {

// The type of the value that a member's accessors return and receive. For a strong reference, it is a borrowed pointer,
// whose object the setter retains.
template <class Member>
struct Stored {
  using Value = Member;
};
template <class Object>
struct Stored<Ref<Object>> {
  using Value = Object*;
};

template <class Member>
struct MemberType;
template <class Struct, class Type>
struct MemberType<Type Struct::*> {
  using Value = Type;
};

template <class Type, auto member>
struct Accessors {
  using Member = typename MemberType<decltype(member)>::Value;
  using Value = typename Stored<Member>::Value;

  static Value get(Type* self) { return state(self).*member; }
  static void set(Type* self, Value value) {
    if constexpr (std::is_same_v<Member, Value>) {
      state(self).*member = value;
    } else {
      state(self).*member = retain(value);
    }
  }
};

}  // namespace detail

// A property whose value is a member of the state, with a getter only.
template <FixedString name, class Type, auto member>
constexpr PropertyEntry readOnly() {
  return {method<name, &detail::Accessors<Type, member>::get>(), {}};
}

// A property whose value is a member of the state, with a getter and a setter.
template <FixedString name, class Type, auto member>
constexpr PropertyEntry stored() {
  using Accessors = detail::Accessors<Type, member>;
  return {method<name, &Accessors::get>(), method<setterName<name>(), &Accessors::set>()};
}

// Adds the accessors to an existing class. Does nothing if the class is null.
inline void addProperties(Class target, std::span<const PropertyEntry> properties) {
  for (const PropertyEntry& property : properties) {
    addCategory(target, {&property.getter, 1});
    if (property.setter.selector != nullptr) addCategory(target, {&property.setter, 1});
  }
}

}  // namespace objc
