// Associated values: properties stored on an object of a class that this project does not define. The object retains
// the value, and releases it when the object itself is deallocated.
#pragma once

#include "objc/ownership.hpp"

namespace objc {

namespace detail {

inline void associate(id object, SEL key, id value) {
  objc_setAssociatedObject(object, reinterpret_cast<const void*>(key), value,
                           static_cast<std::uintptr_t>(AssociationPolicy::RetainNonatomic));
}
inline id associated(id object, SEL key) {
  return objc_getAssociatedObject(object, reinterpret_cast<const void*>(key));
}

}  // namespace detail

// The accessors of an associated property. The key is the selector of its getter. The getter returns nil before the
// first call of the setter.
template <FixedString name, class Type>
struct AssociatedProperty {
  static Type get(id self) { return static_cast<Type>(static_cast<void*>(detail::associated(self, selector<name>()))); }
  static void set(id self, Type value) { detail::associate(self, selector<name>(), detail::toId(value)); }
};

// The accessors of a Boolean property. The value is stored in an NSValue. The getter returns false before the first
// call of the setter.
template <FixedString name>
struct AssociatedProperty<name, bool> {
  static bool get(id self) {
    bool value = false;
    const id box = detail::associated(self, selector<name>());
    if (box != nullptr) send<void, "getValue:">(box, static_cast<void*>(&value));
    return value;
  }
  static void set(id self, bool value) {
    const id box = send<id, "valueWithBytes:objCType:">(lookUpClass<"NSValue">(), static_cast<const void*>(&value),
                                                        TypeEncoding<bool>::value.data());
    detail::associate(self, selector<name>(), box);
  }
};

}  // namespace objc
