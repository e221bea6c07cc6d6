// The Messages app's process: suspended, without a window, listening.
#pragma once

#include <memory>

#include "simulator/messages/messages_options.hpp"
#include "simulator/process/process_start.hpp"

namespace messages {

// The root has a Messages app already.
class AlreadyRunning : public process::StartError {
 public:
  using process::StartError::StartError;
};

// An app that has loaded its list of conversations. A process has one, and it ends with the process. Main thread,
// before any other use of Foundation.
class MessagesApp {
 public:
  // Throws StartError.
  explicit MessagesApp(const MessagesOptions& options);
  MessagesApp(const MessagesApp&) = delete;
  MessagesApp& operator=(const MessagesApp&) = delete;
  ~MessagesApp();

  // Until the process is told to end, by a signal or by the end of standard input.
  void run();

 private:
  struct State;
  std::unique_ptr<State> state;
};

}  // namespace messages
