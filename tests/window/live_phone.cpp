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

json tell(const std::filesystem::path& root, const json& command) {
  foundation::FileDescriptor socket;
  eventually([&] {
    socket = foundation::connectIn(process::controlFolder(root), process::controlSocket);
    return socket.isOpen();
  });
  if (!foundation::sendAll(socket, command.dump() + "\n")) throw std::runtime_error("the phone accepts no command");
  std::string answer;
  for (char buffer[4096]; answer.find('\n') == std::string::npos;) {
    const ssize_t size = recv(socket.get(), buffer, sizeof buffer, 0);
    if (size <= 0) throw std::runtime_error("the phone has not answered");
    answer.append(buffer, static_cast<std::size_t>(size));
  }
  return json::parse(answer);
}

bool showsText(const std::filesystem::path& root, const std::string& text) {
  return containsText(tell(root, {{"do", "tree"}})["windows"], text);
}

}  // namespace test
