// The daemon that carries distributed notifications between a root's processes. Foundation starts it; it ends with the
// last of them.
#pragma once

#include <filesystem>

#include "simulator/foundation/descriptor.hpp"

namespace foundation {

// Gives this process the daemon of the root, by environment, at a place of its own outside the root: the names of its
// sockets must be short, and the root may be removed before its processes end. When the last process of the root exits,
// the daemon is ended and its place removed; what processes that were killed have left goes when another root is used.
// Before any use of Foundation, once. Throws std::filesystem::filesystem_error.
void useDaemonOf(const std::filesystem::path& root);

// Another path of the root, of letters and digits whatever those of the root are: Foundation's configuration takes no
// other. It ends with the last process of the root. After useDaemonOf.
std::filesystem::path plainPathOfRoot();

// Becomes readable when the daemon of this process's root ends. Not open where none runs, or the daemon is the user's.
Descriptor watchDaemon();
// Whether that daemon is there still. False where the descriptor is not open.
bool daemonRuns(const Descriptor& watched);

}  // namespace foundation
