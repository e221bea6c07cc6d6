// The C functions of the Objective-C runtime and of the code-injection loader, and what was changed through them.
#pragma once

#include <string>
#include <vector>

#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/objective_c.hpp"

namespace device {

// One method replaced in, or added to, a class.
struct ChangedMethod {
  std::string className;
  std::string selector;
  std::string kind;      // "hook" or "add"
  std::string encoding;  // empty for hooks: nobody tells
  bool isClassMethod;
};

// In the order of the calls. The list must live as long as the imports.
void supplyRuntimeFunctions(Imports& imports, ObjectiveC& runtime, std::vector<ChangedMethod>& changes);

}  // namespace device
