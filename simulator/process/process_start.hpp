// What every process of the phone does when it starts, and what the library mapped into it tells of itself.
#pragma once

#include <filesystem>
#include <stdexcept>

#include "simulator/foundation/root.hpp"

namespace process {

// The process could not start; `what` says why, for people.
class StartError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// First thing, before any other use of Foundation. Empty: the user's own root, with the user's own preferences. Throws
// StartError.
void useRoot(const std::filesystem::path& chosen);
void useRoot(const std::filesystem::path& root, foundation::DefaultsDatabase database);

// Maps in what the loader's filters let into the process of that bundle. Once the classes are there. Throws StartError.
void mapLibrary(const char* bundleIdentifier);

// The handle of libBrim.so for dlsym; null if the library was not mapped.
void* mappedLibrary();

}  // namespace process
