// The text-based stubs: the symbols that the phone's library can import, and the phone's library that exports each.
#pragma once

#include <string>
#include <vector>

namespace device {

struct AllowedSymbol {
  std::string symbol;
  std::string library;
  std::string reason;  // empty if the stub gives none
};

// Returns the symbols of all stubs, sorted by the stub's name.
std::vector<AllowedSymbol> allowedSymbols();

}  // namespace device
