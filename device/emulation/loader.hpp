// Loads one file for the phone when the shared library that contains the loader is loaded, as the phone's dynamic
// linker does.
#pragma once

#include <cstddef>

#include "device/mach_o/loadable.hpp"

namespace emulation {

// The file to load.
struct Image {
  const char* name;  // in the folder of the shared library
  // The environment variable that names another file. Null if there is none.
  const char* pathVariable;
  device::FileType type;
  // The file is loaded into the first free slot of this range.
  std::size_t firstSlot;
  std::size_t lastSlot;
};

// Each shared library that contains the loader defines it.
extern const Image image;

// The address of a symbol that the loaded file exports, with the underscore that the phone's C compiler adds. Ends the
// process if there is no such symbol.
void* exportedAddress(const char* symbol);

}  // namespace emulation
