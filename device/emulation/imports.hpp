// The functions and variables that the phone's library imports.
#pragma once

#include <string>

namespace emulation {

// Returns the address to which the symbol is bound. The symbol begins with the underscore that the phone's C compiler
// adds. Null if this process has no such symbol.
void* importedAddress(const std::string& symbol);

}  // namespace emulation
