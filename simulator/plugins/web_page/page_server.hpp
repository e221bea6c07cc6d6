// The web server of the page. It accepts connections only from this computer, and requests only if they contain the
// token of the phone. It runs on the default main context of GLib. Main thread.
#pragma once

#include <libsoup/soup.h>

#include <functional>
#include <string>
#include <vector>

#include "simulator/plugins/web_page/object_handle.hpp"

namespace web_page {

// A file that the server sends. Its content is computed at each request.
struct Resource {
  std::string name;  // the last component of the path; empty for the page itself
  std::string type;
  std::function<std::string()> content;
};

class PageServer {
 public:
  // Receives a WebSocket connection of a page. The connection is borrowed.
  using WhenConnected = std::function<void(SoupWebsocketConnection*)>;

  // The paths of the resources and of the connection begin with the token.
  PageServer(const std::string& token, std::vector<Resource> resources, WhenConnected whenConnected);
  PageServer(const PageServer&) = delete;
  PageServer& operator=(const PageServer&) = delete;
  ~PageServer();

  // Listens on the first free port. Returns false if all ports are in use.
  bool listen();
  // Returns the address of the page. Call this after listen() has succeeded.
  std::string address() const;

 private:
  void respond(SoupServerMessage* message, const char* path) const;
  // Answers the request of a WebSocket connection.
  void upgrade(SoupServerMessage* message);
  // Takes the connection of a request whose answer has been sent.
  void connect(SoupServerMessage* message);

  ObjectHandle<SoupServer> server_;
  std::string folder_;  // the path of the page
  std::vector<Resource> resources_;
  WhenConnected whenConnected_;
  int port_ = 0;
};

}  // namespace web_page
