// Locations of the files that the build or an installation provides. Any thread.
#pragma once

#include <filesystem>

namespace base {

// The path of the library's asset bundle, relative to the root (the folder that represents the phone's file system).
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
  std::filesystem::path page;           // the folder with the files of the web page
};
Installation installation();

}  // namespace base
