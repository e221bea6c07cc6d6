#include "simulator/runner/web_server_plugin.hpp"

#include <arpa/inet.h>
#include <fcntl.h>
#include <microhttpd.h>
#include <netinet/in.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <string_view>

namespace {

using Response = std::unique_ptr<MHD_Response, decltype(&MHD_destroy_response)>;

Response notFoundResponse() {
  return {MHD_create_response_from_buffer(0, nullptr, MHD_RESPMEM_PERSISTENT), &MHD_destroy_response};
}

// Returns a response with the contents of the file, or null if the file does not exist.
Response fileResponse(const std::string& file) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  struct stat status = {};
  if (descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
    return {MHD_create_response_from_fd(static_cast<std::size_t>(status.st_size), descriptor), &MHD_destroy_response};
  if (descriptor >= 0) close(descriptor);
  return {nullptr, &MHD_destroy_response};
}

MHD_Result handleRequest(void* folder, MHD_Connection* connection, const char* path, const char* method, const char*,
                         const char*, std::size_t*, void**) {
  const bool isValidRequest =
      std::string_view(method) == "GET" && std::string_view(path).find("..") == std::string_view::npos;
  const Response found =
      isValidRequest ? fileResponse(*static_cast<const std::string*>(folder) + path) : notFoundResponse();
  const bool isFound = isValidRequest && found != nullptr;
  return MHD_queue_response(connection, isFound ? MHD_HTTP_OK : MHD_HTTP_NOT_FOUND,
                            isFound ? found.get() : notFoundResponse().get());
}

}  // namespace

std::uint16_t brim_serve_folder(const char* folder) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  // The string is never deleted, because the server uses it until the process exits.
  auto* const servedFolder = new std::string(folder);
  MHD_Daemon* const daemon =
      MHD_start_daemon(MHD_USE_AUTO | MHD_USE_INTERNAL_POLLING_THREAD, 0, nullptr, nullptr, &handleRequest,
                       servedFolder, MHD_OPTION_SOCK_ADDR, &address, MHD_OPTION_END);
  if (daemon == nullptr) return 0;
  const MHD_DaemonInfo* const bound = MHD_get_daemon_info(daemon, MHD_DAEMON_INFO_BIND_PORT);
  return bound == nullptr ? 0 : bound->port;
}
