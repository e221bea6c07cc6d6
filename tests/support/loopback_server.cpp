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

// False where the client has gone.
bool sendAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

// Everything up to the empty line; nothing where the client goes before.
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

std::string headOf(const Answer& answer) {
  std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " Scripted";
  head += lineEnd;
  for (const auto& [name, value] : answer.headers) head.append(name).append(": ").append(value).append(lineEnd);
  if (answer.delivery != Delivery::Endless)
    head.append("Content-Length: ").append(std::to_string(answer.body.size())).append(lineEnd);
  return head.append("Connection: close").append(headEnd);
}

}  // namespace

std::string Request::header(const std::string& name) const {
  for (const auto& [each, value] : headers)
    if (strcasecmp(each.c_str(), name.c_str()) == 0) return value;
  return "";
}

LoopbackServer::LoopbackServer() {
  listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  if (listener < 0 || bind(listener, generic, size) != 0 || ::listen(listener, SOMAXCONN) != 0 ||
      getsockname(listener, generic, &size) != 0)
    throw std::runtime_error("no loopback server can be made");
  port = ntohs(address.sin_port);
  listening = std::thread([this] { listen(); });
}

LoopbackServer::~LoopbackServer() {
  std::vector<Connection> open;
  {
    const std::lock_guard lock(mutex);
    ending = true;
  }
  changed.notify_all();
  shutdown(listener, SHUT_RDWR);
  listening.join();
  close(listener);
  {
    const std::lock_guard lock(mutex);
    open.swap(connections);
  }
  for (Connection& connection : open) {
    shutdown(connection.descriptor, SHUT_RDWR);
    connection.thread.join();
    close(connection.descriptor);
  }
}

std::string LoopbackServer::address(const std::string& target) const {
  return "http://127.0.0.1:" + std::to_string(port) + target;
}

void LoopbackServer::answer(const std::string& target, Answer answer) {
  const std::lock_guard lock(mutex);
  answers[target] = std::move(answer);
}

void LoopbackServer::release() {
  {
    const std::lock_guard lock(mutex);
    released = true;
  }
  changed.notify_all();
}

std::vector<Request> LoopbackServer::requests() const {
  const std::lock_guard lock(mutex);
  return asked;
}

bool LoopbackServer::waitForRequests(std::size_t count, std::chrono::seconds limit) const {
  std::unique_lock lock(mutex);
  return changed.wait_for(lock, limit, [&] { return asked.size() >= count; });
}

void LoopbackServer::listen() {
  for (;;) {
    const int descriptor = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) return;
    const std::lock_guard lock(mutex);
    connections.push_back({descriptor, std::thread([this, descriptor] { serve(descriptor); })});
  }
}

// The descriptor stays open for the destructor, lest it shut down another one of the same number.
void LoopbackServer::serve(int descriptor) {
  if (const std::optional<std::string> head = receiveHead(descriptor)) deliver(descriptor, answerTo(parse(*head)));
  shutdown(descriptor, SHUT_RDWR);
}

Answer LoopbackServer::answerTo(const Request& request) {
  std::unique_lock lock(mutex);
  asked.push_back(request);
  changed.notify_all();
  const auto found = answers.find(request.target);
  if (found == answers.end()) return {.status = 404};
  Answer answer = found->second;
  if (answer.timing == Timing::WhenReleased) changed.wait(lock, [this] { return released || ending; });
  return answer;
}

void LoopbackServer::deliver(int descriptor, const Answer& answer) const {
  const std::string_view body = answer.body;
  if (answer.delivery == Delivery::Nothing || !sendAll(descriptor, headOf(answer))) return;
  switch (answer.delivery) {
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
