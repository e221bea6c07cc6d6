// The root: the folder that represents the phone's file system. The functions translate the platform's paths to paths
// in this folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ns_string.hpp"

namespace foundation {

// Specifies with which processes this process shares preferences and distributed notifications.
enum class DefaultsDatabase {
  OfUser,  // all processes of the user
  OfRoot,  // only the processes of the same root
};

// Selects the root. Creates the folder if it is missing, and a link from "private/var" to "var" in it. Call this first
// in a process, before any other use of Foundation, because Foundation reads the location of its database only once.
// Returns a description of the error, or nothing on success. Main thread.
[[nodiscard]] std::optional<std::string> useRoot(const std::filesystem::path& root, DefaultsDatabase database);

// Returns the database that useRoot has selected.
DefaultsDatabase defaultsDatabase();
// Returns the absolute path of the root. The path is empty until useRoot is called.
const std::filesystem::path& root();

// Translates a path of the phone, such as "/var/mobile/Library", to the path under the root. Returns the path unchanged
// if it is relative, if it is already under the root, or if there is no root.
std::string pathUnderRoot(std::string_view platformPath);

// Makes Foundation translate paths: a path in "/Library/Application Support/Brim", "/var/mobile" or
// "/private/var/mobile" refers to the file under the root, for all classes that access files and for
// -fileSystemRepresentation. Other paths are unchanged. File names are UTF-8, regardless of the user's locale. Main
// thread, once.
void installPlatformPaths();

}  // namespace foundation
