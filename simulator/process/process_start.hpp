// Start-up steps that all processes of the simulated phone share: use a root, then load the library. Main thread.
#pragma once

#include <filesystem>
#include <stdexcept>

#include "simulator/foundation/root.hpp"

namespace process {

// The process could not start. what() is a message for the user with the reason.
class StartError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Creates the root where necessary and makes it the file system of this process. Call it before any other use of
// Foundation. An empty path selects the user's default root and the user's preferences; any other root has its own
// preferences. Throws StartError.
void useRoot(const std::filesystem::path& root);
void useRoot(const std::filesystem::path& root, foundation::DefaultsDatabase database);

// Loads the libraries whose loader filters list this bundle identifier. Call it after the classes have been registered.
// Throws StartError.
void loadLibrary(const char* bundleIdentifier);

// The handle of libBrim.so for dlsym. Null if the library was not loaded.
void* loadedLibrary();

}  // namespace process
