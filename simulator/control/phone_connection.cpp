#include "simulator/control/phone_connection.hpp"

#include <sys/socket.h>

#include <cerrno>
#include <nlohmann/json.hpp>

#include "simulator/base/default_root.hpp"
#include "simulator/foundation/local_socket.hpp"
#include "simulator/process/control_socket.hpp"

namespace control {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

std::string startAdvice(const fs::path& root) {
  const std::string option = root.empty() ? "" : " --root " + root.string();
  return "no phone is running on " + (root.empty() ? base::defaultRoot() : root).string() +
         "; start one with: ./brim springboard --live" + option;
}

}  // namespace

PhoneConnection::PhoneConnection(const fs::path& root)
    : socket_(foundation::connectIn(process::controlFolder(root.empty() ? base::defaultRoot() : root),
                                    process::controlSocket)) {
  if (!socket_.isOpen()) throw ConnectionError(startAdvice(root));
}

std::string PhoneConnection::executeLine(const std::string& line) {
  // An error is ignored: the phone closes the connection if a line is too long, but its answer can still be read.
  static_cast<void>(foundation::sendAll(socket_, line + "\n"));
  for (std::size_t end = 0;;) {
    if (end = received_.find('\n'); end != std::string::npos) {
      std::string answer = received_.substr(0, end);
      received_.erase(0, end + 1);
      return answer;
    }
    char buffer[65536];
    const ssize_t size = recv(socket_.get(), buffer, sizeof buffer, 0);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) throw ConnectionError("the phone ended before it answered");
    received_.append(buffer, static_cast<std::size_t>(size));
  }
}

Json PhoneConnection::execute(const Json& command) {
  return Json::parse(executeLine(command.dump(-1, ' ', false, Json::error_handler_t::replace)));
}

Json executeOn(PhoneConnection& phone, const Json& command) {
  Json answer = phone.execute(command);
  if (!answer["ok"].get<bool>()) throw ControlError(answer["error"]);
  return answer;
}

}  // namespace control
