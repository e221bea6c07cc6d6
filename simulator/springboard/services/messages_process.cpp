#include "simulator/springboard/services/messages_process.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "simulator/base/installation.hpp"
#include "simulator/foundation/descriptor.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/process/root_setup.hpp"
#include "simulator/springboard/services/messages_connection.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

using foundation::FileDescriptor;

constexpr std::chrono::seconds maxLaunchTime(5);
constexpr std::chrono::seconds maxShutdownTime(2);
constexpr std::chrono::milliseconds pollInterval(2);

enum class ChildState { Running, NotNeeded, Failed };

// The app's process, if this home screen has started it.
struct Child {
  pid_t process = 0;
  // The write end of the app's standard input. It is closed when the home screen exits, which makes the app exit.
  FileDescriptor standardInput;
};

std::unique_ptr<MessagesConnection>& connection() {
  static auto& current = *new std::unique_ptr<MessagesConnection>;
  return current;
}

std::optional<Child>& child() {
  static auto& started = *new std::optional<Child>;
  return started;
}

std::vector<std::string> commandLine() {
  std::vector<std::string> words = {base::installation().messages,      "--suspended", "--system",
                                    uikit::environment().systemVersion, "--root",      foundation::root().string()};
  if (foundation::defaultsDatabase() == foundation::DefaultsDatabase::OfUser) words.emplace_back("--user-defaults");
  return words;
}

// Starts the app. Redirects the app's standard output to this process's standard error, because scripts read this
// process's standard output.
std::optional<Child> spawn() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
  const FileDescriptor input(ends[0]);
  Child started = {0, FileDescriptor(ends[1])};

  const std::vector<std::string> words = commandLine();
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input.get(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
  const int error = posix_spawn(&started.process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error == 0) return started;
  std::fprintf(stderr, "cannot start the Messages app: %s: %s\n", arguments[0], std::strerror(error));
  return std::nullopt;
}

// Returns the state of the child process. If the process has ended, also resets `child`.
ChildState stateOfChild() {
  if (!child()) return ChildState::NotNeeded;
  int status = 0;
  const pid_t ended = waitpid(child()->process, &status, WNOHANG);
  if (ended == 0) return ChildState::Running;
  child().reset();
  const bool succeeded = ended > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  return succeeded ? ChildState::NotNeeded : ChildState::Failed;
}

bool appIsReady(TimePoint deadline) {
  if (connection() == nullptr || connection()->hasEnded())
    connection() = std::make_unique<MessagesConnection>(messages::messagesFolder(foundation::root()));
  return connection()->isReady(deadline);
}

// Starts the app if necessary and waits until it is ready. If another home screen starts the app at the same time, one
// of the two processes exits with success, and both home screens use the remaining process.
bool startAndWait(TimePoint deadline) {
  stateOfChild();
  while (!appIsReady(deadline)) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    switch (stateOfChild()) {
      case ChildState::Running:
        std::this_thread::sleep_for(pollInterval);
        break;
      case ChildState::NotNeeded:
        child() = spawn();
        if (!child()) return false;
        break;
      case ChildState::Failed:
        return false;
    }
  }
  return true;
}

}  // namespace

bool launchMessages() {
  const bool isReady = startAndWait(std::chrono::steady_clock::now() + maxLaunchTime);
  if (!isReady) std::fprintf(stderr, "the Messages app does not accept requests\n");
  return isReady;
}

void endMessages() {
  connection().reset();
  if (!child()) return;
  child()->standardInput = FileDescriptor();
  const TimePoint deadline = std::chrono::steady_clock::now() + maxShutdownTime;
  while (stateOfChild() == ChildState::Running && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(pollInterval);
}

}  // namespace springboard
