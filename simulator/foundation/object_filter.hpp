// Tells in a nanosecond that an object is not in a table, which is what nearly every question is about.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "objc/runtime.hpp"

namespace foundation {

// Counts objects by a hash of their address. Any thread; an object's own entry is visible to whoever got the object
// from the thread that added it.
class ObjectFilter {
 public:
  void add(id object) { bucket(object).fetch_add(1, std::memory_order_relaxed); }
  void remove(id object) { bucket(object).fetch_sub(1, std::memory_order_relaxed); }
  // False is certain; true sometimes means another object of the same hash.
  bool mayContain(id object) const { return bucket(object).load(std::memory_order_relaxed) != 0; }

 private:
  static constexpr int addressBits = 64;
  static constexpr int indexBits = 12;

  static std::size_t indexOf(id object) {
    return reinterpret_cast<std::uintptr_t>(object) * 0x9e3779b97f4a7c15 >> (addressBits - indexBits);
  }
  std::atomic<std::uint32_t>& bucket(id object) { return counts[indexOf(object)]; }
  const std::atomic<std::uint32_t>& bucket(id object) const { return counts[indexOf(object)]; }

  std::atomic<std::uint32_t> counts[std::size_t{1} << indexBits] = {};
};

}  // namespace foundation
