// The code-injection loader: maps into a process the dynamic libraries whose filters name it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace foundation {

struct LoadOutcome {
  std::vector<std::filesystem::path> loaded;
  // One line each: a filter that cannot be read, a library that cannot be mapped. They are on standard error too.
  std::vector<std::string> failures;
};

// Looks at every NAME.plist in the root's Library/MobileSubstrate/DynamicLibraries, in order of their names, and maps
// NAME.dylib where the filter's bundles have the identifier. Main thread, once the platform's classes are registered.
LoadOutcome injectLibraries(const std::string& bundleIdentifier);

}  // namespace foundation
