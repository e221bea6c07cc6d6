// Locations of the files that the build or an installation provides, and of the default roots. A root is the folder
// that represents the phone's file system. Any thread.
#pragma once

#include <filesystem>

namespace base {

// The path of the library's asset bundle, relative to a root.
inline constexpr const char* assetBundlePath = "Library/Application Support/Brim/Assets.bundle";

// Absolute paths of files and folders that the build or an installation provides. They are in the folders lib/brim,
// share/brim and bin of the installation prefix or build folder that contains this shared library.
struct Installation {
  std::filesystem::path library;        // the file libBrim.so
  std::filesystem::path assetBundle;    // the folder Assets.bundle
  std::filesystem::path applications;   // the folder with the application icons, named <bundle identifier>.png
  std::filesystem::path messages;       // the executable of the Messages app
  std::filesystem::path demonstration;  // the folder with the demonstration's files and web pages
  std::filesystem::path settingsPane;   // the bundle of the settings pane
};
Installation installation();

// Returns the user's default root: brim/root in the user's data folder, which is $XDG_DATA_HOME or ~/.local/share. A
// relative path in $XDG_DATA_HOME or $HOME is ignored. Without $HOME, the home folder is that of the user database.
// Throws std::runtime_error if the user has no home folder.
std::filesystem::path defaultRoot();
// Returns the root of the demonstration, a folder next to the default root. The demonstration has its own root because
// it must not change the user's files.
std::filesystem::path demonstrationRoot();

}  // namespace base
