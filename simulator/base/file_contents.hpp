// Files that anybody may have written.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace base {

// Nothing where there is no such file, it cannot be read, it is no regular file or it is larger than `most` bytes. Does
// not wait where a pipe lies in the file's place. Any thread.
std::optional<std::string> readRegularFile(const std::filesystem::path& file, std::size_t most);

}  // namespace base
