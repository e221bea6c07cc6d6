// What the dynamic linker changes in a library before it runs: pointers that move with it, pointers to other libraries,
// and what it exports.
#pragma once

#include "tests/device/mach_file.hpp"

namespace device {

struct Bind {
  std::uint64_t address;  // of the pointer
  std::string symbol;
  std::string library;  // that exports it
};

struct Export {
  std::string symbol;
  std::uint64_t address;
};

// Addresses of pointers that hold addresses of the library itself. These three throw std::runtime_error on opcodes
// that are damaged or not classic.
std::vector<std::uint64_t> rebases(const MachFile& file);
// The ones needed at once, then those a first call may look up.
std::vector<Bind> binds(const MachFile& file);
std::vector<Export> exports(const MachFile& file);

}  // namespace device
