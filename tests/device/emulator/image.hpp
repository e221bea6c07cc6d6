// A library in the emulated memory, as the dynamic linker leaves it there.
#pragma once

#include <functional>

#include "device/mach_o/mach_file.hpp"
#include "tests/device/emulator/processor.hpp"

namespace device {

class Image {
 public:
  // Gives the address of an import, or throws with its name.
  using Resolve = std::function<Address(const std::string& symbol, const std::string& library)>;

  // Maps the segments, moves what has to move with them and binds every import.
  Image(Processor& processor, const MachFile& file, const Resolve& resolve);

  // Runs the start-up routines, as the dynamic linker does last.
  void runInitializers();

  // Throws where nothing of that name is exported.
  Address exported(const std::string& symbol) const;
  // Whether the address is in a writable segment of the library.
  bool holdsVariable(Address address) const;

 private:
  Processor& processor;
  MachFile file;
};

}  // namespace device
