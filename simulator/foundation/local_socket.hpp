// Sockets between a root's processes, by name in a folder whose path may be longer than a socket's name can be.
#pragma once

#include <filesystem>
#include <string_view>

#include "simulator/foundation/descriptor.hpp"

namespace foundation {

// Waits for connections under that name; one that a process has left there gives way, so the caller sees to it that it
// is alone. None open on failure; errno tells why.
Descriptor listenIn(const std::filesystem::path& folder, const char* name);
// None open where nobody of this user listens.
Descriptor connectIn(const std::filesystem::path& folder, const char* name);
// The next connection of a listening socket, of this user alone.
Descriptor acceptFrom(const Descriptor& listening);

// Whether all was written. A reader that has gone, or that does not read for a second, does no harm.
bool sendAll(const Descriptor& socket, std::string_view bytes);

}  // namespace foundation
