// The root: the folder that represents the phone's file system. Translates the platform's paths into it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ns_string.hpp"

namespace foundation {

// Selects with which processes this one shares preferences and distributed notifications.
enum class DefaultsDatabase {
  OfUser,  // with all processes of the user
  OfRoot,  // with the processes of the same root only
};

// Selects the root. Creates it if it is missing, with a link from "private/var" to "var". Call it first in a process,
// before any other use of Foundation, because Foundation reads the location of its database only once. Returns the
// reason of a failure, or nothing on success. Main thread.
[[nodiscard]] std::optional<std::string> useRoot(const std::filesystem::path& root, DefaultsDatabase database);

// The database that useRoot selected.
DefaultsDatabase defaultsDatabase();
// The absolute path of the root. Empty until useRoot is called.
const std::filesystem::path& root();

// Translates a path of the phone, such as "/var/mobile/Library", to the path under the root. Returns a path unchanged
// if it is already under the root or is relative, and any path if there is no root.
std::string pathUnderRoot(std::string_view platformPath);

// Makes Foundation translate paths: a path in "/Library/Application Support/Brim", "/var/mobile" or
// "/private/var/mobile" refers to the file under the root, for all classes that access files and for
// -fileSystemRepresentation. Other paths are unchanged. File names are UTF-8, regardless of the user's locale. Main
// thread, once.
void installPlatformPaths();

}  // namespace foundation
