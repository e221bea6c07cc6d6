// Checks that a loader for arm64 processes can load a library.
#pragma once

#include "device/mach_o/mach_file.hpp"

namespace device {

inline constexpr std::uint64_t maxSizeInMemory = 0x1000'0000;

// Throws std::runtime_error with the first reason for which the library cannot be loaded.
void requireLoadable(const MachFile& file);

// The number of bytes from address 0 to the end of the last segment, for a loadable library.
std::uint64_t sizeInMemory(const MachFile& file);

}  // namespace device
