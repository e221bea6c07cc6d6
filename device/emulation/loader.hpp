// Loads one file for the phone in the same way as the phone's dynamic linker. The file is loaded when the shared
// library that contains this loader is loaded.
#pragma once

#include <cstddef>

#include "device/mach_o/loadable.hpp"

namespace emulation {

// The file to load.
struct Image {
  const char* name;  // the file's name in the folder of the shared library
  // The environment variable that names another file. Null if there is none.
  const char* pathVariable;
  device::FileType type;
  // The file is loaded into the first free slot of this range.
  std::size_t firstSlot;
  std::size_t lastSlot;
};

// Each shared library that contains the loader defines it.
extern const Image image;

// Returns the address of a symbol that the loaded file exports. The symbol begins with the underscore that the phone's
// C compiler adds. Ends the process if there is no such symbol.
void* exportedAddress(const char* symbol);

}  // namespace emulation
