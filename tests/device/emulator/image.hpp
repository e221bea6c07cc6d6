// A library loaded into emulated memory, with the work of the dynamic linker done.
#pragma once

#include <functional>

#include "tests/device/emulator/processor.hpp"
#include "tests/device/mach_file.hpp"

namespace device {

class Image {
 public:
  // Returns the address of an import, or throws an exception that names the import.
  using Resolve = std::function<Address(const std::string& symbol, const std::string& library)>;

  // Maps the segments, rebases pointers and binds every import.
  Image(Processor& processor, const MachFile& file, const Resolve& resolve);

  // Runs the initializers, as the dynamic linker does last.
  void runInitialisers();

  // Throws if no symbol of that name is exported.
  Address exported(const std::string& symbol) const;
  // Returns whether the address is in a writable segment of the library.
  bool holdsVariable(Address address) const;

 private:
  Processor& processor;
  MachFile file;
};

}  // namespace device
