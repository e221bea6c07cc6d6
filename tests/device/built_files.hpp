// Where the build has put the phone's library and its package.
#pragma once

#include <filesystem>

namespace device {

inline std::filesystem::path builtLibrary() { return std::filesystem::path(BRIM_DEVICE_BUILD) / "Brim.dylib"; }
// The same library with the names of its functions.
inline std::filesystem::path namedLibrary() { return std::filesystem::path(BRIM_DEVICE_BUILD) / "symbols/Brim.dylib"; }
inline const char* packageName() { return "brim_" BRIM_VERSION "_iphoneos-arm.deb"; }
inline std::filesystem::path builtPackage() { return std::filesystem::path(BRIM_DEVICE_BUILD) / packageName(); }
// The library and the package built a second time, in another folder.
inline std::filesystem::path secondBuild() { return BRIM_DEVICE_SECOND_BUILD; }
inline std::filesystem::path sourceFolder() { return BRIM_SOURCE; }

}  // namespace device
