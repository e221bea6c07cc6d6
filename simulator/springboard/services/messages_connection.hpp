// The home screen's end of the line to the Messages app.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "simulator/foundation/descriptor.hpp"

namespace springboard {

using TimePoint = std::chrono::steady_clock::time_point;

// What the app reports goes into the event log as it comes, on a thread of the connection's own. Main thread.
class MessagesConnection {
 public:
  // Not open where no app listens in that folder.
  explicit MessagesConnection(const std::filesystem::path& folder);
  MessagesConnection(const MessagesConnection&) = delete;
  MessagesConnection& operator=(const MessagesConnection&) = delete;
  ~MessagesConnection();

  // Whether the app hears requests. It is asked, and waited for, unless it has said so once and neither it nor the
  // daemon of the notifications has ended since. False where the app has ended, or does not answer in time.
  bool isReady(TimePoint deadline);
  // Whether the app, or the connection with it, has ended.
  bool hasEnded() const;

 private:
  struct Line;

  bool answers(TimePoint deadline);

  std::shared_ptr<Line> line;
  // With which the app has said that it is ready.
  foundation::Descriptor daemon;
};

}  // namespace springboard
