#include "simulator/messages/home_screen_service.hpp"

#include <sys/socket.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "simulator/foundation/run_loop.hpp"

namespace messages {

HomeScreenService::HomeScreenService(const std::filesystem::path& folder, std::function<bool()> becomeReady)
    : becomeReady_(std::move(becomeReady)), listening_(foundation::listenIn(folder, serviceSocket)) {
  if (listening_.isOpen()) foundation::watchDescriptor(listening_.get(), [this] { acceptConnection(); });
}

HomeScreenService::~HomeScreenService() {
  if (listening_.isOpen()) foundation::unwatchDescriptor(listening_.get());
  for (auto connection = connections_.begin(); connection != connections_.end();) connection = drop(connection);
}

void HomeScreenService::report(const nlohmann::ordered_json& event) {
  const std::string line = event.dump(-1, ' ', true, nlohmann::ordered_json::error_handler_t::replace) + "\n";
  for (auto connection = connections_.begin(); connection != connections_.end();)
    connection = foundation::sendAll(*connection, line) ? std::next(connection) : drop(connection);
}

void HomeScreenService::acceptConnection() {
  foundation::FileDescriptor accepted = foundation::acceptFrom(listening_);
  if (!accepted.isOpen()) return;
  const auto connection = connections_.insert(connections_.end(), std::move(accepted));
  foundation::watchDescriptor(connection->get(), [this, connection] { readFrom(connection); });
}

void HomeScreenService::readFrom(Connections::iterator connection) {
  char buffer[256];
  const ssize_t size = recv(connection->get(), buffer, sizeof buffer, 0);
  if (size <= 0) {
    drop(connection);
    return;
  }
  const auto queryCount = std::count(buffer, buffer + size, '\n');
  for (auto remaining = queryCount; remaining > 0; --remaining) {
    if (becomeReady_() && foundation::sendAll(*connection, std::string(readyReply) + "\n")) continue;
    drop(connection);
    return;
  }
}

HomeScreenService::Connections::iterator HomeScreenService::drop(Connections::iterator connection) {
  foundation::unwatchDescriptor(connection->get());
  return connections_.erase(connection);
}

}  // namespace messages
