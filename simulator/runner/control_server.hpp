// Executes the commands that other processes send to a live phone.
#pragma once

#include <list>
#include <memory>

#include "simulator/foundation/descriptor.hpp"
#include "simulator/runner/session.hpp"

namespace runner {

// Listens on the control socket of the current root until it is destroyed. The commands of one client are executed in
// order. While a command of one client waits, the commands of other clients are executed. A client that sends a line
// that is too long receives an error and is disconnected. Main thread.
class ControlServer {
 public:
  // `listening` is the control socket if this process already listens on it. Otherwise, the descriptor is closed.
  explicit ControlServer(Session& session, foundation::FileDescriptor listening = {});
  ControlServer(const ControlServer&) = delete;
  ControlServer& operator=(const ControlServer&) = delete;
  ~ControlServer();

  // Returns whether clients can connect. If they cannot, errno contains the reason immediately after the construction.
  bool isListening() const { return listening_.isOpen(); }

  // Ends all connections, stops listening and returns the control socket. The socket file remains in the root.
  foundation::FileDescriptor takeSocket();

 private:
  struct Client;

  void accept();
  void read(const std::shared_ptr<Client>& client);
  void scheduleNext(const std::shared_ptr<Client>& client);
  void executeNext(const std::shared_ptr<Client>& client);
  void disconnect(const std::shared_ptr<Client>& client);

  Session& session_;
  foundation::FileDescriptor listening_;
  std::list<std::shared_ptr<Client>> clients_;
};

}  // namespace runner
