// Local sockets between the processes of a root. A folder and a name identify a socket, because a complete path can be
// too long for a socket address. Connections from and to processes of other users are rejected.
#pragma once

#include <filesystem>
#include <string_view>

#include "simulator/foundation/descriptor.hpp"

namespace foundation {

// Listens under this name. Replaces a socket file of the same name, so at most one process can listen there. On
// failure, returns a closed descriptor and sets errno.
FileDescriptor listenIn(const std::filesystem::path& folder, const char* name);
// Connects to the process that listens under this name. Returns a closed descriptor if no process of this user listens.
FileDescriptor connectIn(const std::filesystem::path& folder, const char* name);
// Accepts the next connection. Returns a closed descriptor if there is no connection or if the connecting process
// belongs to another user.
FileDescriptor acceptFrom(const FileDescriptor& listening);

// Writes all bytes and returns whether this succeeded. Writing fails, without a signal, if the reader has closed the
// connection or reads nothing for a second.
bool sendAll(const FileDescriptor& socket, std::string_view bytes);

}  // namespace foundation
