// A server that says the same bytes to whoever connects, whatever they are.
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
  // Whether it says that there is no more to come.
  enum class Then { Close, Stay };

  explicit RawServer(std::string bytes, Then next = Then::Close)
      : said(std::move(bytes)), then(next), listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener, generic, size) == 0 && listen(listener, SOMAXCONN) == 0) getsockname(listener, generic, &size);
    port = ntohs(address.sin_port);
    thread = std::thread([this] { serve(); });
  }
  RawServer(const RawServer&) = delete;
  RawServer& operator=(const RawServer&) = delete;
  ~RawServer() {
    shutdown(listener, SHUT_RDWR);
    thread.join();
    close(listener);
  }

  std::string address() const { return "http://127.0.0.1:" + std::to_string(port) + "/"; }

 private:
  void serve() const {
    for (int client = accept(listener, nullptr, nullptr); client >= 0; client = accept(listener, nullptr, nullptr)) {
      char request[4096];
      if (recv(client, request, sizeof request, 0) > 0) send(client, said.data(), said.size(), MSG_NOSIGNAL);
      if (then == Then::Close) shutdown(client, SHUT_WR);
      // Until the client has read it all and goes.
      while (recv(client, request, sizeof request, 0) > 0) {
      }
      close(client);
    }
  }

  std::string said;
  Then then;
  int listener;
  int port = 0;
  std::thread thread;
};

}  // namespace test
