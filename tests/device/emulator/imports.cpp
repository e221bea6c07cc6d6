#include "tests/device/emulator/imports.hpp"

#include <stdexcept>

namespace device {

Imports::Imports(Processor& suppliedTo) : processor(suppliedTo) {
  // All imports are bound before the library runs, so the lazy binder must never be called.
  addresses["dyld_stub_binder"] = processor.addHostFunction(
      "dyld_stub_binder", [](HostCall&) { throw std::runtime_error("a function was left unbound"); });
}

void Imports::add(const std::string& name, HostFunction function) {
  addresses["_" + name] = processor.addHostFunction(name, [this, name, function = std::move(function)](HostCall& call) {
    calledNames.insert(name);
    function(call);
  });
}

Address Imports::resolve(const std::string& symbol, const std::string& library) const {
  const auto found = addresses.find(symbol);
  if (found == addresses.end()) throw std::runtime_error("an unexpected import: " + symbol + " of " + library);
  return found->second;
}

}  // namespace device
