// The code-injection loader. It loads dynamic libraries into a process whose bundle identifier their filters list.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace foundation {

struct LoadOutcome {
  std::vector<std::filesystem::path> loaded;
  // One line for each filter that cannot be read and each library that cannot be loaded. Also printed to standard
  // error.
  std::vector<std::string> failures;
};

// Reads each NAME.plist in the root's Library/MobileSubstrate/DynamicLibraries, sorted by name, and loads NAME.dylib if
// the filter's bundles contain the identifier. Call it after the platform's classes are registered. Main thread.
LoadOutcome injectLibraries(const std::string& bundleIdentifier);

}  // namespace foundation
