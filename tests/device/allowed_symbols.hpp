// The text-based stubs. They list the symbols that Brim can import, and the library of the phone that exports each
// symbol.
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
