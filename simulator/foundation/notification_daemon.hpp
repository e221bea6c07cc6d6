// The daemon that carries distributed notifications between a root's processes. Foundation starts it; it ends with the
// last of them.
#pragma once

#include <filesystem>

namespace foundation {

// Makes the folder the place of this process's daemon, by environment. When the last process of the folder exits, the
// daemon is ended and the folder removed. Before any use of Foundation, once. Throws std::filesystem::filesystem_error.
void useDaemonFolder(const std::filesystem::path& folder);

}  // namespace foundation
