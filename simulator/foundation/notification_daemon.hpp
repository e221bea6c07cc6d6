// The daemon that transfers distributed notifications between the processes of a root. Foundation starts it; it ends
// with the last process of the root.
#pragma once

#include <filesystem>

#include "simulator/foundation/descriptor.hpp"

namespace foundation {

// Connects this process to the root's daemon, through the environment. The daemon's folder lies outside the root,
// because the path of a socket must be short and because the root can be removed before its processes end. When the
// last process of a root exits, it ends the daemon and removes the folder. If that process was killed, the next process
// that uses any root does so. Call it once, before any use of Foundation. Throws std::filesystem::filesystem_error.
void useDaemonOfRoot(const std::filesystem::path& root);

// A symbolic link to the root that has a short path of letters, digits and hyphens, because Foundation's configuration
// file does not support other characters. The last process of the root removes it. Call it after useDaemonOfRoot.
std::filesystem::path aliasOfRoot();

// A descriptor that becomes readable when the daemon of this process's root ends. It is not open if no daemon runs, or
// if the process uses the daemon of the user's session.
FileDescriptor watchDaemon();
// Whether the watched daemon still runs. False if the descriptor is not open.
bool isDaemonRunning(const FileDescriptor& watched);

}  // namespace foundation
