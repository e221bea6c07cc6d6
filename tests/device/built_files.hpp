// Paths of the phone's library and its package in the build folder.
#pragma once

#include <filesystem>
#include <string>

namespace device {

inline std::filesystem::path buildFolder() { return BRIM_DEVICE_BUILD; }
inline std::filesystem::path builtLibrary() { return buildFolder() / "Brim.dylib"; }
inline std::filesystem::path builtPane() { return buildFolder() / "share/brim/BrimPreferences.bundle"; }
// The file name of the package for phones with this architecture: iphoneos-arm or iphoneos-arm64.
inline std::string packageName(const std::string& architecture) {
  return "brim_" BRIM_VERSION "_" + architecture + ".deb";
}
// A second build of the library and the package, in another folder.
inline std::filesystem::path secondBuild() { return BRIM_DEVICE_SECOND_BUILD; }
inline std::filesystem::path sourceFolder() { return BRIM_SOURCE; }

}  // namespace device
