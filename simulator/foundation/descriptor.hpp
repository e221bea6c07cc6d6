// Owns a file descriptor and closes it when destroyed.
#pragma once

#include <unistd.h>

#include <utility>

namespace foundation {

class Descriptor {
 public:
  Descriptor() = default;
  // Takes ownership of an open descriptor. A negative value, such as a failed open returns, means none.
  explicit Descriptor(int opened) : descriptor_(opened) {}
  Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~Descriptor() {
    if (isOpen()) close(descriptor_);
  }

  bool isOpen() const { return descriptor_ >= 0; }
  // Remains owned by this object. Negative if none is open.
  int get() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

}  // namespace foundation
