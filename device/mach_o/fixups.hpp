// A library's dynamic-linking information: rebased pointers, bound pointers and exported symbols.
#pragma once

#include "device/mach_o/mach_file.hpp"

namespace device {

struct Bind {
  std::uint64_t address;  // the address of the pointer
  std::string symbol;
  std::string library;  // the library that exports the symbol
};

struct Export {
  std::string symbol;
  std::uint64_t address;
};

// Returns the addresses of pointers into the library itself. This function and the next two throw std::runtime_error on
// damaged opcodes, on opcodes other than the classic ones and on pointers outside the segments.
std::vector<std::uint64_t> rebases(const MachFile& file);
// Returns the binds that are made when the file is loaded, followed by the lazy binds.
std::vector<Bind> binds(const MachFile& file);
std::vector<Export> exports(const MachFile& file);

}  // namespace device
