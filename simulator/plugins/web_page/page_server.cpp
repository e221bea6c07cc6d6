#include "simulator/plugins/web_page/page_server.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

#include "simulator/plugins/web_page/message_limit.hpp"

namespace web_page {

namespace {

constexpr int firstPort = 8085;
constexpr int lastPort = 8184;
constexpr const char* connectionName = "connection";
constexpr const char* protocol = "brim-phone";

constexpr const char* securityHeaders[][2] = {
    {"Cache-Control", "no-store"},
    {"Content-Security-Policy",
     "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
     "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Referrer-Policy", "no-referrer"},
    {"X-Content-Type-Options", "nosniff"},
};

bool equalsIgnoringCase(const std::string& left, const std::string& right) {
  return g_ascii_strcasecmp(left.c_str(), right.c_str()) == 0;
}

bool isLoopback(const char* hostName) {
  if (equalsIgnoringCase(hostName, "localhost")) return true;
  const ObjectHandle<GInetAddress> address(g_inet_address_new_from_string(hostName));
  return address != nullptr && g_inet_address_get_is_loopback(address.get()) != FALSE;
}

// Checks the host name, because any web site can make its own name resolve to the loopback address. Does not check the
// port, because the user can forward it.
bool isAddressedToThisComputer(const char* host) {
  if (host == nullptr) return false;
  const ObjectHandle<GSocketConnectable> address(g_network_address_parse(host, firstPort, nullptr));
  return address != nullptr && isLoopback(g_network_address_get_hostname(G_NETWORK_ADDRESS(address.get())));
}

void refuse(SoupServerMessage* message, guint status, std::string_view reason) {
  soup_server_message_set_status(message, status, nullptr);
  soup_server_message_set_response(message, "text/plain; charset=utf-8", SOUP_MEMORY_COPY, reason.data(),
                                   reason.size());
}

// Checks the headers of each request before its body is read. No valid request has a body, so bodies are discarded.
void checkRequest(SoupServer*, SoupServerMessage* message, const char*, GHashTable*, void*) {
  soup_message_body_set_accumulate(soup_server_message_get_request_body(message), FALSE);
  SoupMessageHeaders* const headers = soup_server_message_get_response_headers(message);
  for (const auto& [name, value] : securityHeaders) soup_message_headers_replace(headers, name, value);
  const char* const host = soup_message_headers_get_one(soup_server_message_get_request_headers(message), "Host");
  if (!isAddressedToThisComputer(host))
    return refuse(message, SOUP_STATUS_FORBIDDEN, "The phone is displayed only on the computer that runs it.\n");
  const std::string_view method = soup_server_message_get_method(message);
  if (method != SOUP_METHOD_GET && method != SOUP_METHOD_HEAD)
    refuse(message, SOUP_STATUS_METHOD_NOT_ALLOWED, "The method must be GET.\n");
}

// Checks the origin, which browsers send, because browsers let any web page open a connection to any address.
void checkConnection(SoupServer* server, SoupServerMessage* message, const char* path, GHashTable* query, void* data) {
  checkRequest(server, message, path, query, data);
  if (soup_server_message_get_status(message) != SOUP_STATUS_NONE) return;
  SoupMessageHeaders* const headers = soup_server_message_get_request_headers(message);
  const char* const origin = soup_message_headers_get_one(headers, "Origin");
  const std::string own = std::string("http://") + soup_message_headers_get_one(headers, "Host");
  if (origin == nullptr || !equalsIgnoringCase(origin, own))
    refuse(message, SOUP_STATUS_FORBIDDEN, "Only the phone's own page can connect to it.\n");
}

}  // namespace

PageServer::PageServer(const std::string& token, std::vector<Resource> resources, WhenConnected whenConnected)
    : server_(soup_server_new(nullptr, nullptr)),
      folder_("/" + token + "/"),
      resources_(std::move(resources)),
      whenConnected_(std::move(whenConnected)) {
  const auto handle = +[](SoupServer*, SoupServerMessage* message, const char* path, GHashTable*, void* self) {
    static_cast<const PageServer*>(self)->respond(message, path);
  };
  const auto connect = +[](SoupServer*, SoupServerMessage* message, const char*, GHashTable*, void* self) {
    static_cast<PageServer*>(self)->upgrade(message);
  };
  soup_server_add_early_handler(server_.get(), nullptr, &checkRequest, nullptr, nullptr);
  soup_server_add_handler(server_.get(), nullptr, handle, this, nullptr);
  const std::string connectionPath = folder_ + connectionName;
  soup_server_add_early_handler(server_.get(), connectionPath.c_str(), &checkConnection, nullptr, nullptr);
  soup_server_add_handler(server_.get(), connectionPath.c_str(), connect, this, nullptr);
}

PageServer::~PageServer() { soup_server_disconnect(server_.get()); }

bool PageServer::listen() {
  const ObjectHandle<GInetAddress> loopback(g_inet_address_new_loopback(G_SOCKET_FAMILY_IPV4));
  for (port_ = firstPort; port_ <= lastPort; ++port_) {
    const ObjectHandle<GSocketAddress> address(g_inet_socket_address_new(loopback.get(), static_cast<guint16>(port_)));
    if (soup_server_listen(server_.get(), address.get(), SoupServerListenOptions{}, nullptr) != FALSE) return true;
  }
  return false;
}

std::string PageServer::address() const { return "http://127.0.0.1:" + std::to_string(port_) + folder_; }

void PageServer::upgrade(SoupServerMessage* message) {
  std::string name = protocol;
  char* protocols[] = {name.data(), nullptr};
  // The server accepts no extension. Frames are already compressed, and decompressing a message from a client could
  // exhaust memory.
  if (soup_websocket_server_process_handshake(message, nullptr, protocols, nullptr, nullptr) == FALSE) return;
  const auto answered = +[](SoupServerMessage* upgraded, PageServer* self) { self->connect(upgraded); };
  g_signal_connect(message, "wrote-informational", G_CALLBACK(answered), this);
}

void PageServer::connect(SoupServerMessage* message) {
  g_object_ref(message);
  const ObjectHandle<GIOStream> stream(soup_server_message_steal_connection(message));
  const ObjectHandle<SoupWebsocketConnection> connection(
      soup_websocket_connection_new(stream.get(), soup_server_message_get_uri(message),
                                    SOUP_WEBSOCKET_CONNECTION_SERVER, nullptr, protocol, extensionsWithMessageLimit()));
  g_object_unref(message);
  whenConnected_(connection.get());
}

void PageServer::respond(SoupServerMessage* message, const char* path) const {
  const std::string_view requested = path;
  if (!requested.starts_with(folder_)) {
    return refuse(message, SOUP_STATUS_FORBIDDEN,
                  "This is not the address of the phone. Open the whole address that the phone has printed.\n");
  }
  const auto found = std::ranges::find(resources_, requested.substr(folder_.size()), &Resource::name);
  if (found == resources_.end()) return refuse(message, SOUP_STATUS_NOT_FOUND, "There is no such file.\n");
  const std::string content = found->content();
  soup_server_message_set_status(message, SOUP_STATUS_OK, nullptr);
  soup_server_message_set_response(message, found->type.c_str(), SOUP_MEMORY_COPY, content.data(), content.size());
}

}  // namespace web_page
