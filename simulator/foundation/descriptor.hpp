// Owns a file descriptor and closes it when destroyed.
#pragma once

#include <unistd.h>

#include <utility>

namespace foundation {

class FileDescriptor {
 public:
  FileDescriptor() = default;
  // Takes ownership of an open descriptor. A negative value, such as a failed open returns, means none.
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
  // Remains owned by this object. Negative if none is open.
  int get() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

}  // namespace foundation
