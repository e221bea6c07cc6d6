// The home screen's end of the line to the Messages app.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

namespace springboard {

using Moment = std::chrono::steady_clock::time_point;

// What the app reports goes into the event log as it comes, on a thread of the connection's own. Main thread.
class MessagesConnection {
 public:
  // Not open where no app listens in that folder.
  explicit MessagesConnection(const std::filesystem::path& folder);
  MessagesConnection(const MessagesConnection&) = delete;
  MessagesConnection& operator=(const MessagesConnection&) = delete;
  ~MessagesConnection();

  // Asks the app whether it is ready for requests and waits for the answer. False where the app has ended, or does not
  // answer in time.
  bool isReady(Moment deadline);
  // Whether the app, or the connection with it, has ended.
  bool hasEnded() const;

 private:
  struct Line;
  std::shared_ptr<Line> line;
};

}  // namespace springboard
