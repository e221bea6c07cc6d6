// A file descriptor that is closed with its owner.
#pragma once

#include <unistd.h>

#include <utility>

namespace foundation {

class Descriptor {
 public:
  Descriptor() = default;
  // Takes over what open and its like have answered; negative is none.
  explicit Descriptor(int opened) : number(opened) {}
  Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number, other.number);
    return *this;
  }
  ~Descriptor() {
    if (isOpen()) close(number);
  }

  bool isOpen() const { return number >= 0; }
  int get() const { return number; }

 private:
  int number = -1;
};

}  // namespace foundation
