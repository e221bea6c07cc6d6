#include "simulator/runner/control_server.hpp"

#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <system_error>
#include <utility>

#include "simulator/foundation/local_socket.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/process/control_socket.hpp"
#include "simulator/process/signals.hpp"
#include "simulator/runner/command_handlers.hpp"

namespace runner {

namespace {

std::string lineOf(const Json& answer) { return answer.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n"; }

std::string sizeError() {
  return lineOf({{"ok", false},
                 {"error", "a command must have at most " + std::to_string(process::maxControlLineBytes) + " bytes"}});
}

// The maximum number of clients, each of which uses a descriptor.
constexpr std::size_t maxClients = 128;

std::string clientError() {
  return lineOf(
      {{"ok", false},
       {"error", "more than " + std::to_string(maxClients) + " clients are connected; disconnect one first"}});
}

bool isBlank(const std::string& line) { return line.find_first_not_of(" \t\r") == std::string::npos; }

}  // namespace

struct ControlServer::Client {
  foundation::FileDescriptor socket;
  std::string received;
  bool isConnected = true;
  // Whether the client has sent its last command.
  bool hasEnded = false;
};

ControlServer::ControlServer(Session& session, foundation::FileDescriptor listening)
    : session_(session), listening_(std::move(listening)) {
  const std::filesystem::path folder = process::controlFolder(foundation::root());
  if (!listening_.isOpen()) listening_ = foundation::listenIn(folder, process::controlSocket);
  if (listening_.isOpen()) foundation::watchDescriptor(listening_.get(), [this] { accept(); });
}

ControlServer::~ControlServer() {
  if (!takeSocket().isOpen()) return;
  std::error_code error;
  std::filesystem::remove(process::controlFolder(foundation::root()) / process::controlSocket, error);
}

foundation::FileDescriptor ControlServer::takeSocket() {
  if (listening_.isOpen()) foundation::unwatchDescriptor(listening_.get());
  while (!clients_.empty()) disconnect(clients_.front());
  return std::move(listening_);
}

void ControlServer::accept() {
  // Leaves the connection pending, for the phone that may replace this one.
  if (process::isTerminationRequested()) return;
  foundation::FileDescriptor socket = foundation::acceptFrom(listening_);
  if (!socket.isOpen()) return;
  if (clients_.size() >= maxClients) {
    static_cast<void>(foundation::sendAll(socket, clientError()));
    return;
  }
  const auto client = std::make_shared<Client>();
  client->socket = std::move(socket);
  clients_.push_back(client);
  foundation::watchDescriptor(client->socket.get(), [this, client] { read(client); });
}

void ControlServer::read(const std::shared_ptr<Client>& client) {
  char buffer[65536];
  const ssize_t size = recv(client->socket.get(), buffer, sizeof buffer, MSG_DONTWAIT);
  if (size > 0) {
    const std::size_t before = client->received.size();
    client->received.append(buffer, static_cast<std::size_t>(size));
    const std::size_t end = client->received.find('\n', before);
    if (std::min(end, client->received.size()) > process::maxControlLineBytes) {
      static_cast<void>(foundation::sendAll(client->socket, sizeError()));
      disconnect(client);
    } else if (end != std::string::npos) {
      // Reads no more from the client until its complete lines have been executed, to limit the memory that it uses.
      foundation::unwatchDescriptor(client->socket.get());
      scheduleNext(client);
    }
    return;
  }
  if (size < 0 && (errno == EAGAIN || errno == EINTR)) return;
  foundation::unwatchDescriptor(client->socket.get());
  client->hasEnded = true;
  scheduleNext(client);
}

// Schedules the client's next command. A command is not executed in the callback that receives it, because a command
// that waits runs the run loop.
void ControlServer::scheduleNext(const std::shared_ptr<Client>& client) {
  foundation::onMainThreadForRequest([this, client] {
    if (client->isConnected) executeNext(client);
  });
}

void ControlServer::executeNext(const std::shared_ptr<Client>& client) {
  const std::size_t end = client->received.find('\n');
  const bool isComplete = end != std::string::npos;
  if (!isComplete && !client->hasEnded) {
    foundation::watchDescriptor(client->socket.get(), [this, client] { read(client); });
    return;
  }
  // The last line does not need a line feed.
  const std::string line = client->received.substr(0, end);
  client->received.erase(0, isComplete ? end + 1 : end);
  if (!isBlank(line) && !foundation::sendAll(client->socket, lineOf(session_.runLine(line)))) return disconnect(client);
  if (!isComplete) return disconnect(client);
  scheduleNext(client);
}

void ControlServer::disconnect(const std::shared_ptr<Client>& client) {
  foundation::unwatchDescriptor(client->socket.get());
  client->isConnected = false;
  // The parameter can be an element of clients_, which std::erase must not compare with.
  std::erase_if(clients_, [removed = client.get()](const auto& each) { return each.get() == removed; });
}

}  // namespace runner
