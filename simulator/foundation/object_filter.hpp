// Tests quickly whether a table can contain an object. This avoids most searches, because most objects have no
// associations and no weak references.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "objc/runtime.hpp"

namespace foundation {

// Counts the table's objects by a hash of their address. Any thread. A thread that receives an object from the thread
// that added the object's entry sees the entry.
class ObjectFilter {
 public:
  void add(id object) { bucket(object).fetch_add(1, std::memory_order_relaxed); }
  void remove(id object) { bucket(object).fetch_sub(1, std::memory_order_relaxed); }
  // Returns false only if the object is not in the table. Returns true if the object or another object with the same
  // hash is in the table.
  bool mayContain(id object) const { return bucket(object).load(std::memory_order_relaxed) != 0; }

 private:
  static constexpr int addressBits = 64;
  static constexpr int indexBits = 12;

  static std::size_t indexOf(id object) {
    return reinterpret_cast<std::uintptr_t>(object) * 0x9e3779b97f4a7c15 >> (addressBits - indexBits);
  }
  std::atomic<std::uint32_t>& bucket(id object) { return counts_[indexOf(object)]; }
  const std::atomic<std::uint32_t>& bucket(id object) const { return counts_[indexOf(object)]; }

  std::atomic<std::uint32_t> counts_[std::size_t{1} << indexBits] = {};
};

}  // namespace foundation
