// The root that is used if the user selects none. A root is a folder that represents the phone's file system. Any
// thread.
#pragma once

#include <filesystem>

namespace base {

// Returns the user's default root: brim/root in the user's data folder, which is $XDG_DATA_HOME or ~/.local/share. A
// relative path in $XDG_DATA_HOME or $HOME is ignored. Without $HOME, the user database provides the home folder.
// Throws std::runtime_error if the user has no home folder.
std::filesystem::path defaultRoot();
// Returns the root of the demonstration, a folder next to the default root. The demonstration has its own root because
// it must not change the user's files.
std::filesystem::path demonstrationRoot();

}  // namespace base
