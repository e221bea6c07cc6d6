// The startup steps that all processes of the simulated phone share: each process selects its root and then loads the
// library. Main thread.
#pragma once

#include <filesystem>
#include <stdexcept>

#include "simulator/foundation/root.hpp"

namespace process {

// Thrown if the process cannot start. what() is a message for the user that contains the reason.
class StartError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Creates the missing files of the root and makes the root the file system of this process. Call this before any other
// use of Foundation. An empty path selects the user's default root and the user's preferences. Any other root has its
// own preferences, unless `database` selects the user's preferences. Throws StartError.
void useRoot(const std::filesystem::path& root);
void useRoot(const std::filesystem::path& root, foundation::DefaultsDatabase database);

// Loads the libraries whose loader filters list this bundle identifier. Call this after the classes have been
// registered. Throws StartError.
void loadLibrary(const char* bundleIdentifier);

// Returns the handle of libBrim.so for dlsym, or null if the library was not loaded.
void* loadedLibrary();

}  // namespace process
