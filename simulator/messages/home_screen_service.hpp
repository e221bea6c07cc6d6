// The service through which the Messages app communicates with home screens. It replies when the app is ready for
// requests, and reports what the app has done. The protocol consists of lines of text, which are sent over a socket in
// the folder of the store. Main thread.
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
// The reply to an empty line. A home screen sends an empty line to query whether the app is ready. Every other line
// from the app is an event, which is a JSON object.
inline constexpr const char* readyReply = "ready";

// A root has at most one service, because it has at most one Messages app; see process/instance_lock.hpp.
class HomeScreenService {
 public:
  // Creates the socket in `folder`. `becomeReady` is called for each query. If it returns false, the service closes the
  // connection instead of replying. If the socket cannot be created, the service is not open, and errno describes the
  // error.
  HomeScreenService(const std::filesystem::path& folder, std::function<bool()> becomeReady);
  HomeScreenService(const HomeScreenService&) = delete;
  HomeScreenService& operator=(const HomeScreenService&) = delete;
  ~HomeScreenService();

  bool isOpen() const { return listening_.isOpen(); }
  // Returns whether any home screen is connected.
  bool isConnected() const { return !connections_.empty(); }
  // Sends the event to all connected home screens.
  void report(const nlohmann::ordered_json& event);

 private:
  using Connections = std::list<foundation::FileDescriptor>;

  void acceptConnection();
  void readFrom(Connections::iterator connection);
  Connections::iterator drop(Connections::iterator connection);

  std::function<bool()> becomeReady_;
  foundation::FileDescriptor listening_;
  Connections connections_;
};

}  // namespace messages
