// Reads and writes whole files. Any thread.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace drawing {

// Returns the content of a file. Returns an empty vector if the file is missing, unreadable, not a regular file or
// larger than 256 MiB.
std::vector<std::byte> readRegularFile(const std::filesystem::path& path);

// Writes a file atomically: after a failure, an existing file is unchanged and no other file remains. An existing file
// is replaced only if it is a regular file. If the path is a symbolic link, the target of the link is written and the
// link is unchanged. Returns a description of the error, or nothing on success.
[[nodiscard]] std::optional<std::string> writeFile(std::span<const std::byte> content,
                                                   const std::filesystem::path& path);
// Returns the error that writeFile would report now, except for a full disk. Returns nothing if the file can be
// written.
[[nodiscard]] std::optional<std::string> checkWritable(const std::filesystem::path& path);

}  // namespace drawing
