#include "tests/support/child_process.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace test {

ChildProcess::ChildProcess(const std::vector<std::string>& command, const std::filesystem::path& errors) {
  int pipeEnds[2];
  if (pipe2(pipeEnds, O_CLOEXEC) != 0) throw std::runtime_error("cannot create a pipe");
  const foundation::FileDescriptor readEnd(pipeEnds[0]);
  input_ = foundation::FileDescriptor(pipeEnds[1]);
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, readEnd.get(), STDIN_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  if (!errors.empty())
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  const int error = posix_spawn(&child_, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start " + command.front());
}

ChildProcess::~ChildProcess() {
  if (hasEnded()) return;
  kill();
  waitpid(child_, &status_, 0);
}

void ChildProcess::write(const std::string& lines) const {
  std::size_t written = 0;
  while (written < lines.size()) {
    const ssize_t size = ::write(input_.get(), lines.data() + written, lines.size() - written);
    if (size <= 0) throw std::runtime_error("the program does not read its standard input");
    written += static_cast<std::size_t>(size);
  }
}

void ChildProcess::kill() const { ::kill(child_, SIGKILL); }

bool ChildProcess::hasEnded() {
  if (!isReaped_) isReaped_ = waitpid(child_, &status_, WNOHANG) == child_;
  return isReaped_;
}

int ChildProcess::exitStatus() { return hasEnded() && WIFEXITED(status_) ? WEXITSTATUS(status_) : -1; }

bool ChildProcess::hasSucceeded() { return exitStatus() == 0; }

}  // namespace test
