// What the Messages app says to the home screens that have launched it: that it is ready, and what it has done. Lines
// of text over a socket beside the store.
#pragma once

#include <filesystem>
#include <functional>
#include <list>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "simulator/foundation/descriptor.hpp"
#include "simulator/foundation/local_socket.hpp"

namespace messages {

inline constexpr const char* serviceSocket = "messages.socket";
// A home screen asks with an empty line. The answer; any other line is an event, an object of JSON.
inline constexpr const char* readyAnswer = "ready";

// Main thread, of an app that is alone on its root.
class Service {
 public:
  // A question is answered when `becomeReady` has returned true, and the connection closed when false. It does not
  // start where the folder takes no socket; errno tells why.
  Service(const std::filesystem::path& folder, std::function<bool()> becomeReady);
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;
  ~Service();

  bool isOpen() const { return listening.isOpen(); }
  // Whether a home screen is there.
  bool isConnected() const { return !connections.empty(); }
  void report(const nlohmann::ordered_json& event);

 private:
  using Connections = std::list<foundation::Descriptor>;

  void acceptConnection();
  void readFrom(Connections::iterator connection);
  Connections::iterator drop(Connections::iterator connection);

  std::function<bool()> becomeReady;
  foundation::Descriptor listening;
  Connections connections;
};

}  // namespace messages
