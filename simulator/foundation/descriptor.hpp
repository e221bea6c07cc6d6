// Owns a file descriptor and closes it when the owner is destroyed.
#pragma once

#include <unistd.h>

#include <utility>

namespace foundation {

class FileDescriptor {
 public:
  FileDescriptor() = default;
  // Takes ownership of an open descriptor. A negative value, such as the result of a failed call of open, means no
  // descriptor.
  explicit FileDescriptor(int opened) : descriptor_(opened) {}
  FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~FileDescriptor() {
    if (isOpen()) close(descriptor_);
  }

  bool isOpen() const { return descriptor_ >= 0; }
  // Returns the descriptor, which this object still owns. Negative if no descriptor is open.
  int get() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

}  // namespace foundation
