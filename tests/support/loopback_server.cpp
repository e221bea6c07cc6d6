#include "tests/support/loopback_server.hpp"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <strings.h>
#include <sys/socket.h>
#include <unistd.h>

#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace test {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view headEnd = "\r\n\r\n";

// Returns false if the client has closed the connection.
bool sendAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

// Receives the request line and the headers. Returns nullopt if the client closes the connection before the headers
// end.
std::optional<std::string> receiveHead(int descriptor) {
  std::string received;
  char buffer[4096];
  while (received.find(headEnd) == std::string::npos) {
    const ssize_t count = recv(descriptor, buffer, sizeof buffer, 0);
    if (count <= 0) return std::nullopt;
    received.append(buffer, static_cast<std::size_t>(count));
  }
  return received.substr(0, received.find(headEnd));
}

std::pair<std::string, std::string> headerIn(const std::string& line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string::npos) return {line, ""};
  const std::size_t value = line.find_first_not_of(' ', colon + 1);
  return {line.substr(0, colon), value == std::string::npos ? "" : line.substr(value)};
}

Request parse(const std::string& head) {
  Request request;
  std::istringstream lines(head);
  lines >> request.method >> request.target;
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) {
    if (line.ends_with('\r')) line.pop_back();
    request.headers.push_back(headerIn(line));
  }
  return request;
}

std::string headOf(const Response& response) {
  std::string head = "HTTP/1.1 " + std::to_string(response.status) + " Scripted";
  head += lineEnd;
  for (const auto& [name, value] : response.headers) head.append(name).append(": ").append(value).append(lineEnd);
  if (response.delivery != Delivery::Endless)
    head.append("Content-Length: ").append(std::to_string(response.body.size())).append(lineEnd);
  return head.append("Connection: close").append(headEnd);
}

}  // namespace

std::string Request::header(const std::string& name) const {
  for (const auto& [each, value] : headers)
    if (strcasecmp(each.c_str(), name.c_str()) == 0) return value;
  return "";
}

LoopbackServer::LoopbackServer() {
  listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  if (listener_ < 0 || bind(listener_, generic, size) != 0 || ::listen(listener_, SOMAXCONN) != 0 ||
      getsockname(listener_, generic, &size) != 0)
    throw std::runtime_error("cannot open a port on the loopback interface");
  port_ = ntohs(address.sin_port);
  listenerThread_ = std::thread([this] { listen(); });
}

LoopbackServer::~LoopbackServer() {
  std::vector<Connection> open;
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_all();
  shutdown(listener_, SHUT_RDWR);
  listenerThread_.join();
  close(listener_);
  {
    const std::lock_guard lock(mutex_);
    open.swap(connections_);
  }
  for (Connection& connection : open) {
    shutdown(connection.descriptor, SHUT_RDWR);
    connection.thread.join();
    close(connection.descriptor);
  }
}

std::string LoopbackServer::address(const std::string& target) const {
  return "http://127.0.0.1:" + std::to_string(port_) + target;
}

void LoopbackServer::answer(const std::string& target, Response response) {
  const std::lock_guard lock(mutex_);
  responses_[target] = std::move(response);
}

void LoopbackServer::release() {
  {
    const std::lock_guard lock(mutex_);
    isReleased_ = true;
  }
  changed_.notify_all();
}

std::vector<Request> LoopbackServer::requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

bool LoopbackServer::waitForRequests(std::size_t count, std::chrono::seconds limit) const {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, limit, [&] { return requests_.size() >= count; });
}

void LoopbackServer::listen() {
  for (;;) {
    const int descriptor = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) return;
    const std::lock_guard lock(mutex_);
    connections_.push_back({descriptor, std::thread([this, descriptor] { serve(descriptor); })});
  }
}

// The destructor closes the descriptor. If this function closed it, its number could be reused, and the destructor
// would shut down the descriptor of another file.
void LoopbackServer::serve(int descriptor) {
  if (const std::optional<std::string> head = receiveHead(descriptor)) deliver(descriptor, responseTo(parse(*head)));
  shutdown(descriptor, SHUT_RDWR);
}

Response LoopbackServer::responseTo(const Request& request) {
  std::unique_lock lock(mutex_);
  requests_.push_back(request);
  changed_.notify_all();
  const auto found = responses_.find(request.target);
  if (found == responses_.end()) return {.status = 404};
  Response response = found->second;
  if (response.timing == Timing::WhenReleased) changed_.wait(lock, [this] { return isReleased_ || isEnding_; });
  return response;
}

void LoopbackServer::deliver(int descriptor, const Response& response) const {
  const std::string_view body = response.body;
  if (response.delivery == Delivery::Nothing || !sendAll(descriptor, headOf(response))) return;
  switch (response.delivery) {
    case Delivery::CutShort:
      sendAll(descriptor, body.substr(0, body.size() / 2));
      break;
    case Delivery::Endless:
      while (!body.empty() && sendAll(descriptor, body)) {
      }
      break;
    default:
      sendAll(descriptor, body);
  }
}

}  // namespace test
