#include "tests/window/live_phone.hpp"

#include <sys/socket.h>

#include <stdexcept>
#include <thread>

#include "simulator/foundation/local_socket.hpp"
#include "simulator/process/control_socket.hpp"

namespace test {

using nlohmann::json;

namespace {

bool containsText(const json& node, const std::string& text) {
  if (node.is_object() && node.value("text", json()) == text) return true;
  if (!node.is_structured()) return false;
  for (const json& child : node)
    if (containsText(child, text)) return true;
  return false;
}

}  // namespace

bool eventually(const std::function<bool()>& condition, std::chrono::seconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < end) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return condition();
}

CommandConnection::CommandConnection(const std::filesystem::path& root) {
  const bool isConnected = eventually([&] {
    socket_ = foundation::connectIn(process::controlFolder(root), process::controlSocket);
    return socket_.isOpen();
  });
  if (!isConnected) throw std::runtime_error("the phone accepts no connection");
}

void CommandConnection::send(const std::string& lines) const {
  if (!foundation::sendAll(socket_, lines)) throw std::runtime_error("the phone accepts no command");
}

json CommandConnection::receive() {
  for (char buffer[4096]; received_.find('\n') == std::string::npos;) {
    const ssize_t size = recv(socket_.get(), buffer, sizeof buffer, 0);
    if (size <= 0) throw std::runtime_error("the phone has not answered");
    received_.append(buffer, static_cast<std::size_t>(size));
  }
  const std::size_t end = received_.find('\n');
  json answer = json::parse(received_.substr(0, end));
  received_.erase(0, end + 1);
  return answer;
}

bool CommandConnection::hasReceived() {
  char byte = 0;
  return !received_.empty() || recv(socket_.get(), &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 1;
}

json tell(const std::filesystem::path& root, const json& command) {
  CommandConnection connection(root);
  connection.send(command.dump() + "\n");
  return connection.receive();
}

bool showsText(const std::filesystem::path& root, const std::string& text) {
  return containsText(tell(root, {{"do", "tree"}})["windows"], text);
}

}  // namespace test
