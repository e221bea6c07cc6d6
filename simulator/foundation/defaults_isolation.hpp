// A defaults database and a notification daemon of a root's own.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace foundation {

// Before any other use of Foundation. The answer is the reason of a failure, nothing on success. Child processes
// inherit it.
[[nodiscard]] std::optional<std::string> isolateDefaults(const std::filesystem::path& root);

}  // namespace foundation
