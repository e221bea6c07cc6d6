// Calls between the phone's library and code for Linux. Both use the same registers, but the phone's code expects
// integers of fewer than 32 bits to be extended to 32 bits, while code for Linux leaves the upper bits undefined. The
// stubs that these functions return extend them. Any thread.
#pragma once

#include <string>

#include "objc/calling_convention.hpp"
#include "objc/runtime.hpp"

namespace emulation {

// The phone's objc_msgSend.
void* messageFunction();

// Returns the address through which code for Linux calls a function of the library. `name` describes the function in
// the report.
IMP intoLibrary(IMP implementation, const char* encoding, const std::string& name);

// Returns the address through which the library calls a function.
IMP outOfLibrary(IMP implementation, const char* encoding, const std::string& name);

}  // namespace emulation
