// The functions and variables that the phone's library imports.
#pragma once

#include <string>

namespace emulation {

// Returns the address to which the symbol is bound, or null if this process has no such symbol. The symbol begins with
// the underscore that the phone's C compiler adds.
void* importedAddress(const std::string& symbol);

}  // namespace emulation
