// The home screen's connection to the service of the Messages app, which messages/home_screen_service.hpp describes.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "simulator/foundation/descriptor.hpp"

namespace springboard {

using TimePoint = std::chrono::steady_clock::time_point;

// A connection. A background thread reads from it and records the events that the app reports. All functions run on the
// main thread.
class MessagesConnection {
 public:
  // Connects to the app. `folder` is the folder of the app's socket. If no app listens there, hasEnded() returns true
  // from the start.
  explicit MessagesConnection(const std::filesystem::path& folder);
  MessagesConnection(const MessagesConnection&) = delete;
  MessagesConnection& operator=(const MessagesConnection&) = delete;
  ~MessagesConnection();

  // Returns whether the app receives requests. Queries the app and waits for its reply, unless the app has already
  // replied and the notification daemon that was running then is still running. Returns false if the app has ended or
  // does not reply before the deadline.
  bool isReady(TimePoint deadline);
  // Returns whether the app has ended or has closed the connection.
  bool hasEnded() const;

 private:
  struct Channel;

  bool awaitReply(TimePoint deadline);

  std::shared_ptr<Channel> channel_;
  // A descriptor of the daemon that was running when the app replied that it was ready.
  foundation::FileDescriptor daemon_;
};

}  // namespace springboard
