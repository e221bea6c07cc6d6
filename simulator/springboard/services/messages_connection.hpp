// The home screen's connection to the service of the Messages app; see messages/report_service.hpp.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "simulator/foundation/descriptor.hpp"

namespace springboard {

using TimePoint = std::chrono::steady_clock::time_point;

// A background thread reads the connection and records the events that the app reports. All functions: main thread.
class MessagesConnection {
 public:
  // `folder` is the folder of the app's socket. If no app listens there, the connection has ended from the start.
  explicit MessagesConnection(const std::filesystem::path& folder);
  MessagesConnection(const MessagesConnection&) = delete;
  MessagesConnection& operator=(const MessagesConnection&) = delete;
  ~MessagesConnection();

  // Returns whether the app receives requests. Queries the app and waits for its reply, unless the app has already
  // replied and the daemon of the distributed notifications still runs. Returns false if the app has ended or does not
  // reply before the deadline.
  bool isReady(TimePoint deadline);
  // Whether the app has ended or closed the connection.
  bool hasEnded() const;

 private:
  struct Channel;

  bool awaitReply(TimePoint deadline);

  std::shared_ptr<Channel> channel_;
  // The daemon that ran when the app replied that it was ready.
  foundation::FileDescriptor daemon_;
};

}  // namespace springboard
