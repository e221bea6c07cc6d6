// A pointer that is found once and kept for the life of the process, asked for by any thread. Threads that ask at the
// same time may each find it; they all find the same, or do not mind a second one.
#pragma once

namespace objc {

template <class Pointer>
class Published {
 public:
  // The pointer, found now where it is not known yet. Null is not kept.
  template <class Find>
  Pointer valueOr(const Find& find) {
    Pointer known = __atomic_load_n(&value, __ATOMIC_ACQUIRE);
    if (known != nullptr) return known;
    known = find();
    __atomic_store_n(&value, known, __ATOMIC_RELEASE);
    return known;
  }

 private:
  Pointer value = nullptr;
};

}  // namespace objc
