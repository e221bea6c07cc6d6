// The socket over which a live phone receives commands. A client sends lines; each line is a command of a script. The
// phone answers each line with one line, in the same order.
#pragma once

#include <cstddef>
#include <filesystem>

namespace process {

inline constexpr const char* controlSocket = "control.socket";
inline constexpr const char* controlLock = "phone.lock";
// The maximum size of a command.
inline constexpr std::size_t maxControlLineBytes = 16 << 20;

// Returns the folder of the socket and the lock.
inline std::filesystem::path controlFolder(const std::filesystem::path& root) { return root / "var/run"; }

}  // namespace process
