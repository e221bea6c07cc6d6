// The addresses at which every process loads the phone's files. Each file is in a slot, which is a range of addresses.
#pragma once

#include <cstddef>
#include <cstdint>

#include "device/mach_o/loadable.hpp"

namespace emulation {

inline constexpr std::size_t slotCount = 8;
inline constexpr std::size_t librarySlot = 0;

// The address is fixed, because the emulator logs executed code only in the address range of the library's slot.
inline constexpr std::uint64_t loadAddress = 0x60'0000'0000;

inline constexpr std::uint64_t addressOfSlot(std::size_t slot) { return loadAddress + slot * device::maxSizeInMemory; }

// Returns whether the address is in the code or data of a file for the phone. Any thread.
inline bool isInPhoneFile(const void* address) {
  return reinterpret_cast<std::uint64_t>(address) - loadAddress < slotCount * device::maxSizeInMemory;
}

}  // namespace emulation
