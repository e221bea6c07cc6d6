// Where the phone's library is in the memory of every process.
#pragma once

#include <cstdint>

#include "device/mach_o/loadable.hpp"

namespace emulation {

// The address is fixed, because the emulator's log of executed code is limited to a range of addresses.
inline constexpr std::uint64_t loadAddress = 0x60'0000'0000;

// Whether the address is in the code or data of the phone's library. Any thread.
inline bool isInLibrary(const void* address) {
  return reinterpret_cast<std::uint64_t>(address) - loadAddress < device::maxSizeInMemory;
}

}  // namespace emulation
