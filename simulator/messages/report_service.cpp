#include "simulator/messages/report_service.hpp"

#include <sys/socket.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "simulator/foundation/run_loop.hpp"

namespace messages {

Service::Service(const std::filesystem::path& folder, std::function<bool()> ready)
    : becomeReady(std::move(ready)), listening(foundation::listenIn(folder, serviceSocket)) {
  if (listening.isOpen()) foundation::watchDescriptor(listening.get(), [this] { acceptConnection(); });
}

Service::~Service() {
  if (listening.isOpen()) foundation::unwatchDescriptor(listening.get());
  for (auto connection = connections.begin(); connection != connections.end();) connection = drop(connection);
}

void Service::report(const nlohmann::ordered_json& event) {
  const std::string line = event.dump(-1, ' ', true, nlohmann::ordered_json::error_handler_t::replace) + "\n";
  for (auto connection = connections.begin(); connection != connections.end();)
    connection = foundation::sendAll(*connection, line) ? std::next(connection) : drop(connection);
}

void Service::acceptConnection() {
  foundation::Descriptor accepted = foundation::acceptFrom(listening);
  if (!accepted.isOpen()) return;
  const auto connection = connections.insert(connections.end(), std::move(accepted));
  foundation::watchDescriptor(connection->get(), [this, connection] { readFrom(connection); });
}

void Service::readFrom(Connections::iterator connection) {
  char buffer[256];
  const ssize_t size = recv(connection->get(), buffer, sizeof buffer, 0);
  if (size <= 0) {
    drop(connection);
    return;
  }
  const auto questions = std::count(buffer, buffer + size, '\n');
  for (auto question = questions; question > 0; --question) {
    if (becomeReady() && foundation::sendAll(*connection, std::string(readyAnswer) + "\n")) continue;
    drop(connection);
    return;
  }
}

Service::Connections::iterator Service::drop(Connections::iterator connection) {
  foundation::unwatchDescriptor(connection->get());
  return connections.erase(connection);
}

}  // namespace messages
