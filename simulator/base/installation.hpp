// Locations of the files that the build or an installation provides, and of the default roots. A root is the folder
// that represents the phone's file system. Any thread.
#pragma once

#include <filesystem>

namespace base {

// The asset bundle of the library, relative to a root.
inline constexpr const char* assetBundlePath = "Library/Application Support/Brim/Assets.bundle";

// Absolute paths in lib/brim, share/brim and bin of the prefix that contains this shared library: an installation or
// the build folder.
struct Installation {
  std::filesystem::path library;        // libBrim.so
  std::filesystem::path assetBundle;    // Assets.bundle
  std::filesystem::path applications;   // application icons, <bundle identifier>.png
  std::filesystem::path messages;       // the executable of the Messages app
  std::filesystem::path demonstration;  // the demonstration's files and web pages
};
Installation installation();

// brim/root in the user's data folder, which is $XDG_DATA_HOME or ~/.local/share.
std::filesystem::path defaultRoot();
// The demonstration uses its own root next to the default one, because it must not change the user's files.
std::filesystem::path demonstrationRoot();

}  // namespace base
