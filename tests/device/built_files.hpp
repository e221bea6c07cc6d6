// Paths of the phone's library and its package in the build folder.
#pragma once

#include <filesystem>
#include <string>

namespace device {

inline std::filesystem::path buildFolder() { return BRIM_DEVICE_BUILD; }
inline std::filesystem::path builtLibrary() { return buildFolder() / "Brim.dylib"; }
// The settings pane's bundle.
inline std::filesystem::path builtPane() { return buildFolder() / "share/brim/BrimPreferences.bundle"; }
// The file name of the package for phones of that architecture: iphoneos-arm or iphoneos-arm64.
inline std::string packageName(const std::string& architecture) {
  return "brim_" BRIM_VERSION "_" + architecture + ".deb";
}
// The library and the package built a second time, in another folder.
inline std::filesystem::path secondBuild() { return BRIM_DEVICE_SECOND_BUILD; }
inline std::filesystem::path sourceFolder() { return BRIM_SOURCE; }

}  // namespace device
