// Ownership of Objective-C objects, expressed by types: Ref is a strong reference, Weak is a reference that becomes
// null when its object is deallocated, and a raw pointer is borrowed.
#pragma once

#include <type_traits>
#include <utility>

#include "objc/send.hpp"

namespace objc {

inline void retainObject(const void* object) { send<id, "retain">(object); }
inline void releaseObject(const void* object) { send<void, "release">(object); }

// A strong reference, or null. `adopt` takes ownership of an object that the caller owns, such as the result of alloc,
// copy or new. `retain` retains a borrowed object.
template <class Type>
class Ref {
 public:
  constexpr Ref() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): every reference can be null.
  constexpr Ref(std::nullptr_t) {}
  Ref(const Ref& other) : object_(other.object_) { retainObject(object_); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class Other>
  requires std::is_convertible_v<Other*, Type*>
  // NOLINTNEXTLINE(google-explicit-constructor): references convert if their pointers convert.
  Ref(const Ref<Other>& other) : object_(other.get()) {
    retainObject(object_);
  }
  ~Ref() { releaseObject(object_); }

  Ref& operator=(const Ref& other) {  // NOLINT(bugprone-unhandled-self-assignment): swaps with a copy.
    Ref copy(other);
    std::swap(object_, copy.object_);
    return *this;
  }
  Ref& operator=(Ref&& other) noexcept {
    Ref moved(std::move(other));
    std::swap(object_, moved.object_);
    return *this;
  }

  static Ref adopt(Type* owned) {
    Ref reference;
    reference.object_ = owned;
    return reference;
  }

  Type* get() const { return object_; }
  Type* operator->() const { return object_; }
  // NOLINTNEXTLINE(google-explicit-constructor): converts to a borrowed pointer.
  operator Type*() const { return object_; }
  // Returns the object and makes this reference null. The object is not released; the caller owns it.
  Type* leak() { return std::exchange(object_, nullptr); }

 private:
  Type* object_ = nullptr;
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

// Creates an object: [[Type alloc] init].
template <class Type>
Ref<Type> make() {
  return adopt(send<Type*, "init">(send<id, "alloc">(Type::classObject())));
}

// Allocates an object: [Type alloc]. Pass the result to an initializer, which takes ownership of it.
template <class Type>
Type* allocate() {
  return send<Type*, "alloc">(Type::classObject());
}

template <class Type>
Type* autorelease(Ref<Type> reference) {
  return send<Type*, "autorelease">(reference.leak());
}

// A reference that does not retain its object. `lock` returns a strong reference, or null if the object has been
// deallocated. Any thread can call `lock`.
template <class Type>
class Weak {
 public:
  constexpr Weak() = default;
  explicit Weak(Type* object) { objc_storeWeak(&location_, detail::toId(object)); }
  Weak(const Weak& other) { objc_storeWeak(&location_, detail::toId(other.lock().get())); }
  Weak& operator=(const Weak& other) {
    *this = other.lock().get();
    return *this;
  }
  Weak& operator=(Type* object) {
    objc_storeWeak(&location_, detail::toId(object));
    return *this;
  }
  ~Weak() { objc_destroyWeak(&location_); }

  Ref<Type> lock() const { return adopt(static_cast<Type*>(static_cast<void*>(objc_loadWeakRetained(&location_)))); }

 private:
  mutable id location_ = nullptr;
};

}  // namespace objc
