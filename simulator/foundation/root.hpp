// The folder that stands for the phone's file system, and the platform's paths in it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ns_string.hpp"

namespace foundation {

// Whose preferences and distributed notifications a process shares.
enum class DefaultsDatabase {
  OfUser,  // those of every other program of the user
  OfRoot,  // those of the processes of the same root alone
};

// Chooses the root, which is made where it is missing, with a link "private/var" to "var". First thing in a process,
// before any other use of Foundation: Foundation reads where its database is at most once. The answer is the reason of
// a failure, nothing on success. Main thread.
[[nodiscard]] std::optional<std::string> useRoot(const std::filesystem::path& root, DefaultsDatabase database);

// As it was chosen.
DefaultsDatabase defaultsDatabase();
// Empty while none was chosen.
const std::filesystem::path& root();

// Where a path of the phone, such as "/var/mobile/Library", really is. A path that is under the root already, or not
// absolute, and any path while there is no root, is answered unchanged.
std::string pathUnderRoot(std::string_view platformPath);

// Makes Foundation's files the phone's: a path in "/Library/Application Support/Brim", "/var/mobile" or
// "/private/var/mobile" means the one under the root, for every class that reads and writes files and for
// -fileSystemRepresentation; other paths mean what they always did. Names are UTF-8, whatever the user's locale says.
void installPlatformPaths();

}  // namespace foundation
