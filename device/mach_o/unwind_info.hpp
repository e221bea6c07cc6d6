// A library's unwind information, which describes how an exception finds the caller of each function. It is in the
// section __unwind_info.
#pragma once

#include "device/mach_o/mach_file.hpp"

namespace device {

// The way in which a function saves its caller's registers.
enum class UnwindMode : std::uint32_t {
  None = 0,                // an exception cannot pass
  Frameless = 0x02000000,  // the function saves no register
  Dwarf = 0x03000000,      // the section __eh_frame describes the registers
  Frame = 0x04000000,  // the function saves the frame pointer, the return address, and pairs of registers below them
};

struct UnwindEntry {
  UnwindMode mode() const { return static_cast<UnwindMode>(encoding & 0x0f000000); }

  std::uint64_t begin;
  std::uint64_t end;
  std::uint32_t encoding;
};

// Returns the entries in address order. Adjacent functions with the same encoding can share an entry. The result is
// empty if the library has no unwind information. Throws std::runtime_error if the information is damaged.
std::vector<UnwindEntry> unwindEntries(const MachFile& file);

// Returns the addresses of all functions, in order. The result is empty if the file does not list them. Throws
// std::runtime_error if the list is damaged.
std::vector<std::uint64_t> functionStarts(const MachFile& file);

}  // namespace device
