// The daemon that transfers distributed notifications between the processes of a root. Foundation starts the daemon. It
// ends with the last process of the root.
#pragma once

#include <filesystem>

#include "simulator/foundation/descriptor.hpp"

namespace foundation {

// Connects this process to the daemon of the root, through the environment. The daemon's folder is outside the root,
// because the path of a socket must be short and because the root can be removed before its processes end. When the
// last process of a root exits, it ends the daemon and removes the folder. If that process is killed, the next process
// that uses any root removes the folder. Call this once, before any use of Foundation. Throws
// std::filesystem::filesystem_error.
void useDaemonOfRoot(const std::filesystem::path& root);

// Returns the path of a symbolic link to the root. The path is short and contains only letters, digits, hyphens and
// slashes, because Foundation's configuration file does not support other characters. The last process of the root
// removes the link. Call this after useDaemonOfRoot.
std::filesystem::path aliasOfRoot();

// Returns a descriptor that becomes readable when the daemon of this process's root ends. The descriptor is not open if
// no daemon is running, or if the process uses the daemon of the user's session.
FileDescriptor watchDaemon();
// Returns whether the watched daemon is still running. Returns false if the descriptor is not open.
bool isDaemonRunning(const FileDescriptor& watched);

}  // namespace foundation
