// Ownership in the type: Ref holds a strong reference, Weak one that becomes null with its object. Raw pointers are
// borrowed.
#pragma once

#include <type_traits>
#include <utility>

#include "objc/send.hpp"

namespace objc {

inline void retainObject(const void* object) { send<id, "retain">(object); }
inline void releaseObject(const void* object) { send<void, "release">(object); }

// A strong reference. `adopt` takes over a reference the caller owns (alloc, copy, new); `retain` takes one more.
template <class Type>
class Ref {
 public:
  constexpr Ref() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): null is a value of every reference.
  constexpr Ref(std::nullptr_t) {}
  Ref(const Ref& other) : object(other.object) { retainObject(object); }
  Ref(Ref&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
  template <class Other>
  requires std::is_convertible_v<Other*, Type*>
  // NOLINTNEXTLINE(google-explicit-constructor): as pointers convert.
  Ref(const Ref<Other>& other) : object(other.get()) {
    retainObject(object);
  }
  ~Ref() { releaseObject(object); }

  Ref& operator=(const Ref& other) {  // NOLINT(bugprone-unhandled-self-assignment): swaps with a copy.
    Ref copy(other);
    std::swap(object, copy.object);
    return *this;
  }
  Ref& operator=(Ref&& other) noexcept {
    Ref moved(std::move(other));
    std::swap(object, moved.object);
    return *this;
  }

  static Ref adopt(Type* owned) {
    Ref reference;
    reference.object = owned;
    return reference;
  }

  Type* get() const { return object; }
  Type* operator->() const { return object; }
  // NOLINTNEXTLINE(google-explicit-constructor): a strong reference lends itself as a borrowed pointer.
  operator Type*() const { return object; }
  // Gives the reference away; the caller owns it now.
  Type* leak() { return std::exchange(object, nullptr); }

 private:
  Type* object = nullptr;
};

template <class Type>
Ref<Type> adopt(Type* owned) {
  return Ref<Type>::adopt(owned);
}

template <class Type>
Ref<Type> retain(Type* borrowed) {
  retainObject(borrowed);
  return Ref<Type>::adopt(borrowed);
}

// [[Type alloc] init]
template <class Type>
Ref<Type> make() {
  return adopt(send<Type*, "init">(send<id, "alloc">(Type::classObject())));
}

// [Type alloc], for the binding of an initializer, which consumes it.
template <class Type>
Type* allocate() {
  return send<Type*, "alloc">(Type::classObject());
}

template <class Type>
Type* autorelease(Ref<Type> reference) {
  return send<Type*, "autorelease">(reference.leak());
}

// A reference that does not keep its object. Main thread and others alike: `lock` gives a strong one, or null.
template <class Type>
class Weak {
 public:
  constexpr Weak() = default;
  explicit Weak(Type* object) { objc_storeWeak(&location, detail::identifier(object)); }
  Weak(const Weak& other) { objc_storeWeak(&location, detail::identifier(other.lock().get())); }
  Weak& operator=(const Weak& other) {
    *this = other.lock().get();
    return *this;
  }
  Weak& operator=(Type* object) {
    objc_storeWeak(&location, detail::identifier(object));
    return *this;
  }
  ~Weak() { objc_destroyWeak(&location); }

  Ref<Type> lock() const { return adopt(static_cast<Type*>(static_cast<void*>(objc_loadWeakRetained(&location)))); }

 private:
  mutable id location = nullptr;
};

}  // namespace objc
