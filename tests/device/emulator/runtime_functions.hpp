// The C functions of the Objective-C runtime and of the code-injection loader, and a record of the methods that they
// changed.
#pragma once

#include <string>
#include <vector>

#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/objective_c.hpp"

namespace device {

// A method that was replaced in a class or added to it.
struct ChangedMethod {
  std::string className;
  std::string selector;
  std::string kind;      // "hook" or "add"
  std::string encoding;  // empty for hooks, which do not give an encoding
  bool isClassMethod;
};

// Appends to `changes` in the order of the calls. The list must outlive the imports.
void supplyRuntimeFunctions(Imports& imports, ObjectiveC& runtime, std::vector<ChangedMethod>& changes);

}  // namespace device
