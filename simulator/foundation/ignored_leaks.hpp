// Excludes memory that Foundation leaks from the reports of the leak sanitizer.
#pragma once

extern "C" {
// Functions of the leak sanitizer. Null in a build without it.
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();
}

namespace foundation {

// While a value of this type exists, the leak sanitizer ignores the allocations of the current thread. A suppression
// list would have the same effect, but it requires the complete stack of each allocation, which makes tests three times
// slower.
class IgnoredLeaks {
 public:
  IgnoredLeaks() {
    if (__lsan_disable != nullptr) __lsan_disable();
  }
  IgnoredLeaks(const IgnoredLeaks&) = delete;
  IgnoredLeaks& operator=(const IgnoredLeaks&) = delete;
  ~IgnoredLeaks() {
    if (__lsan_enable != nullptr) __lsan_enable();
  }
};

// Initializes the Foundation classes whose +initialize methods leak memory, and ignores these leaks. Does nothing
// without the leak sanitizer.
void initializeLeakingClasses();

}  // namespace foundation
