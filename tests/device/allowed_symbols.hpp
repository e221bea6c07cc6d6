// The text stubs: what the phone's library may call, and which library of the phone exports it.
#pragma once

#include <string>
#include <vector>

namespace device {

struct AllowedSymbol {
  std::string symbol;
  std::string library;
  std::string reason;  // empty where the stub gives none
};

// Of all stubs, in the order of their names.
std::vector<AllowedSymbol> allowedSymbols();

}  // namespace device
