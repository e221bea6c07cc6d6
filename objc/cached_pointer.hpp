// A pointer that is computed at first use and then cached until the process ends. Any thread can use it. Several
// threads can compute the pointer before it is cached. Therefore, the computation must be thread-safe and always have
// the same result.
#pragma once

namespace objc {

template <class Pointer>
class CachedPointer {
 public:
  // Returns the cached pointer, or the result of `find` if nothing is cached yet. A null result is not cached.
  template <class Find>
  Pointer getOrFind(const Find& find) {
    Pointer known = __atomic_load_n(&value_, __ATOMIC_ACQUIRE);
    if (known != nullptr) return known;
    known = find();
    __atomic_store_n(&value_, known, __ATOMIC_RELEASE);
    return known;
  }

 private:
  Pointer value_ = nullptr;
};

}  // namespace objc
