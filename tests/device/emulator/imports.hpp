// The library's imports: functions of this program with the phone's names, and variables.
#pragma once

#include <map>
#include <set>
#include <string>

#include "tests/device/emulator/processor.hpp"

namespace device {

class Imports {
 public:
  explicit Imports(Processor& suppliedTo);

  // `name` is the name in C, without the leading underscore of the symbol. The function reads its arguments from
  // registers and leaves its result in them.
  void add(const std::string& name, HostFunction function);
  void addVariable(const std::string& name, Address address) { addresses["_" + name] = address; }

  // Throws std::runtime_error with the symbol and its library if the import is missing.
  Address resolve(const std::string& symbol, const std::string& library) const;

  // The functions called so far.
  const std::set<std::string>& called() const { return calledNames; }

 private:
  Processor& processor;
  std::map<std::string, Address> addresses;
  std::set<std::string> calledNames;
};

}  // namespace device
