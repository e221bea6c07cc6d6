// A TCP server that sends the same bytes to every client, whether or not they are valid HTTP.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <thread>

namespace test {

class RawServer {
 public:
  // Whether the server ends its side of the connection after the bytes.
  enum class AfterBytes { Close, KeepOpen };

  explicit RawServer(std::string bytes, AfterBytes afterBytes = AfterBytes::Close)
      : bytes_(std::move(bytes)), afterBytes_(afterBytes), listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, generic, size) == 0 && listen(listener_, SOMAXCONN) == 0)
      getsockname(listener_, generic, &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
  }
  RawServer(const RawServer&) = delete;
  RawServer& operator=(const RawServer&) = delete;
  ~RawServer() {
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
  }

  std::string address() const { return "http://127.0.0.1:" + std::to_string(port_) + "/"; }

 private:
  void serve() const {
    for (int client = accept(listener_, nullptr, nullptr); client >= 0; client = accept(listener_, nullptr, nullptr)) {
      char request[4096];
      if (recv(client, request, sizeof request, 0) > 0) send(client, bytes_.data(), bytes_.size(), MSG_NOSIGNAL);
      if (afterBytes_ == AfterBytes::Close) shutdown(client, SHUT_WR);
      // Waits until the client disconnects, because an earlier close could discard bytes that the client has not read.
      while (recv(client, request, sizeof request, 0) > 0) {
      }
      close(client);
    }
  }

  std::string bytes_;
  AfterBytes afterBytes_;
  int listener_;
  int port_ = 0;
  std::thread thread_;
};

}  // namespace test
