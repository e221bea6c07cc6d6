// Paths of the phone's library and its package in the build folder.
#pragma once

#include <filesystem>

namespace device {

inline std::filesystem::path builtLibrary() { return std::filesystem::path(BRIM_DEVICE_BUILD) / "Brim.dylib"; }
// The same library before its symbols were stripped.
inline std::filesystem::path namedLibrary() { return std::filesystem::path(BRIM_DEVICE_BUILD) / "symbols/Brim.dylib"; }
inline const char* packageName() { return "brim_" BRIM_VERSION "_iphoneos-arm.deb"; }
inline std::filesystem::path builtPackage() { return std::filesystem::path(BRIM_DEVICE_BUILD) / packageName(); }
// The library and the package from the second build, in another folder.
inline std::filesystem::path secondBuild() { return BRIM_DEVICE_SECOND_BUILD; }
inline std::filesystem::path sourceFolder() { return BRIM_SOURCE; }

}  // namespace device
