// Gives each root its own user-defaults database and notification daemon.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace foundation {

// Configures Foundation, through the environment, to use the database and the daemon of this root. Child processes
// inherit the configuration. Call this before any other use of Foundation. Returns a description of the error, or
// nothing on success.
[[nodiscard]] std::optional<std::string> isolateDefaults(const std::filesystem::path& root);

}  // namespace foundation
