// Checks that a loader for arm64 processes can load a library or a bundle.
#pragma once

#include <cstdint>

#include "device/mach_o/mach_file.hpp"

namespace device {

inline constexpr std::uint64_t maxSizeInMemory = 0x1000'0000;

enum class FileType : std::uint32_t { Library = 6, Bundle = 8 };

// Throws std::runtime_error with the first reason why the file cannot be loaded as a file of this type.
void requireLoadable(const MachFile& file, FileType type);

// Returns the number of bytes from address 0 to the end of the last segment of a loadable file.
std::uint64_t sizeInMemory(const MachFile& file);

}  // namespace device
