// Registers the stack frames of the library's functions with the unwinder of this process, because an exception that
// the platform raises can pass through them. The unwinder reads call frame information in the DWARF format.
#pragma once

#include <cstdint>
#include <vector>

#include "device/mach_o/unwind_info.hpp"

namespace emulation {

// Translates the unwind entries of a library that is loaded at this address. Throws std::runtime_error for an encoding
// that this project's compilers do not emit.
std::vector<std::uint8_t> callFrameInformation(const std::vector<device::UnwindEntry>& entries,
                                               std::uint64_t loadAddress);

// Translates the entries and registers the result until the process ends. Throws the same errors.
void registerFrames(const std::vector<device::UnwindEntry>& entries, std::uint64_t loadAddress);

}  // namespace emulation
