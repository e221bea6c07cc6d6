// The process of the Messages app. It has no window; it receives requests from home screens in the background.
#pragma once

#include <memory>

#include "simulator/messages/messages_options.hpp"
#include "simulator/process/process_start.hpp"

namespace messages {

// Thrown if another Messages app already runs on the root.
class AlreadyRunning : public process::StartError {
 public:
  using process::StartError::StartError;
};

// The Messages app. After its construction, it has loaded its list of conversations. A process creates at most one app,
// before any other use of Foundation. Main thread.
class MessagesApp {
 public:
  // Starts the app. Throws StartError.
  explicit MessagesApp(const MessagesOptions& options);
  MessagesApp(const MessagesApp&) = delete;
  MessagesApp& operator=(const MessagesApp&) = delete;
  ~MessagesApp();

  // Runs the app until a signal requests the termination of the process. If a home screen has launched the app, this
  // function also returns when standard input has ended and no home screen is connected.
  void run();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace messages
