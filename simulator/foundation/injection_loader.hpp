// The code-injection loader. It loads a dynamic library into a process if the library's filter lists the bundle
// identifier of the process.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace foundation {

struct LoadOutcome {
  std::vector<std::filesystem::path> loaded;
  // One error message for each filter that cannot be read and for each library that cannot be loaded. The messages are
  // also printed to standard error.
  std::vector<std::string> failures;
};

// Reads each NAME.plist in the root's Library/MobileSubstrate/DynamicLibraries, sorted by name. If the bundles in the
// file's filter contain the identifier, loads NAME.dylib. Call this after the platform's classes are registered. Main
// thread.
LoadOutcome injectLibraries(const std::string& bundleIdentifier);

}  // namespace foundation
