#include "simulator/foundation/local_socket.hpp"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <cstdio>

namespace foundation {

namespace {

namespace fs = std::filesystem;

constexpr int maxPendingConnections = 8;
constexpr timeval writeTimeout = {1, 0};

// Returns the address of a socket in the folder. The address contains the folder's descriptor instead of its path,
// because a path in a socket address is limited to about 100 bytes.
sockaddr_un addressIn(const FileDescriptor& folder, const char* name) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", folder.get(), name);
  return address;
}

FileDescriptor openFolder(const fs::path& folder) {
  return FileDescriptor(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

FileDescriptor makeSocket() { return FileDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)); }

const sockaddr* genericAddress(const sockaddr_un& address) { return reinterpret_cast<const sockaddr*>(&address); }

bool isOfThisUser(const FileDescriptor& connection) {
  ucred peer = {};
  socklen_t size = sizeof peer;
  return getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
}

void setWriteTimeout(const FileDescriptor& connection) {
  setsockopt(connection.get(), SOL_SOCKET, SO_SNDTIMEO, &writeTimeout, sizeof writeTimeout);
}

}  // namespace

FileDescriptor listenIn(const fs::path& folder, const char* name) {
  const FileDescriptor opened = openFolder(folder);
  FileDescriptor listening = makeSocket();
  const sockaddr_un address = addressIn(opened, name);
  unlinkat(opened.get(), name, 0);
  if (bind(listening.get(), genericAddress(address), sizeof address) != 0) return {};
  if (listen(listening.get(), maxPendingConnections) != 0) return {};
  return listening;
}

FileDescriptor connectIn(const fs::path& folder, const char* name) {
  const FileDescriptor opened = openFolder(folder);
  FileDescriptor connection = makeSocket();
  const sockaddr_un address = addressIn(opened, name);
  if (connect(connection.get(), genericAddress(address), sizeof address) != 0 || !isOfThisUser(connection)) return {};
  setWriteTimeout(connection);
  return connection;
}

FileDescriptor acceptFrom(const FileDescriptor& listening) {
  FileDescriptor connection(accept4(listening.get(), nullptr, nullptr, SOCK_CLOEXEC));
  if (!connection.isOpen() || !isOfThisUser(connection)) return {};
  setWriteTimeout(connection);
  return connection;
}

bool sendAll(const FileDescriptor& socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(socket.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

}  // namespace foundation
