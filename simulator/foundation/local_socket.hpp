// Local sockets between the processes of a root. A socket is addressed by folder and name, because the path of the
// folder can be longer than the address of a socket allows. Only processes of the same user are accepted.
#pragma once

#include <filesystem>
#include <string_view>

#include "simulator/foundation/descriptor.hpp"

namespace foundation {

// Listens under this name. Replaces a socket file of the same name, so the caller must be the only process that listens
// there. Returns a closed descriptor on failure and sets errno.
FileDescriptor listenIn(const std::filesystem::path& folder, const char* name);
// Connects to the listener. Returns a closed descriptor if no process of this user listens there.
FileDescriptor connectIn(const std::filesystem::path& folder, const char* name);
// Accepts the next connection. Returns a closed descriptor if there is none or its process belongs to another user.
FileDescriptor acceptFrom(const FileDescriptor& listening);

// Writes all bytes and returns whether that succeeded. Fails, without a signal, if the reader has closed the connection
// or reads nothing for a second.
bool sendAll(const FileDescriptor& socket, std::string_view bytes);

}  // namespace foundation
