// What the library imports: functions of this program under the phone's names, and variables.
#pragma once

#include <map>
#include <set>
#include <string>

#include "tests/device/emulator/processor.hpp"

namespace device {

class Imports {
 public:
  explicit Imports(Processor& suppliedTo);

  // Under the name in C, without the underscore that symbols have in the file. What the function does with the
  // registers is the call's result.
  void add(const std::string& name, HostFunction function);
  void addVariable(const std::string& name, Address address) { addresses["_" + name] = address; }

  // Throws std::runtime_error with the symbol's name and library where there is no such import.
  Address resolve(const std::string& symbol, const std::string& library) const;

  // The functions called until now.
  const std::set<std::string>& called() const { return calledNames; }

 private:
  Processor& processor;
  std::map<std::string, Address> addresses;
  std::set<std::string> calledNames;
};

}  // namespace device
