// Reads files that are untrusted input.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace base {

// Returns the file's contents. Returns nothing if the file does not exist, cannot be read, is not a regular file or is
// larger than `maxBytes`. Does not block if the path names a pipe. Any thread.
std::optional<std::string> readRegularFile(const std::filesystem::path& file, std::size_t maxBytes);

}  // namespace base
