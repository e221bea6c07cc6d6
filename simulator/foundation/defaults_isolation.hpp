// A separate user-defaults database and notification daemon for each root.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace foundation {

// Configures Foundation, through the environment, to use the database and the daemon of this root. Child processes
// inherit the configuration. Call it before any other use of Foundation. Returns the reason of a failure, or nothing on
// success.
[[nodiscard]] std::optional<std::string> isolateDefaults(const std::filesystem::path& root);

}  // namespace foundation
