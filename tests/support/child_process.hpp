// Runs another program and writes to its standard input. The destructor kills the program if it is still running.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "simulator/foundation/descriptor.hpp"

namespace test {

class ChildProcess {
 public:
  // `command` is the program's path followed by its arguments. Standard output goes to /dev/null. Standard error goes
  // to the file `errors`, or to that of the test if the path is empty. Throws std::runtime_error if the program cannot
  // be started.
  explicit ChildProcess(const std::vector<std::string>& command, const std::filesystem::path& errors = {});
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  // Writes to the standard input of the program. Throws std::runtime_error if the program no longer reads it.
  void write(const std::string& lines) const;
  void closeInput() { input_ = {}; }
  void kill() const;
  // Returns whether the program has exited with status 0. Returns false while the program still runs.
  bool hasSucceeded();
  bool hasEnded();
  // Returns the exit status. Returns -1 while the program is running, or if a signal has ended it.
  int exitStatus();
  pid_t process() const { return child_; }

 private:
  pid_t child_ = 0;
  foundation::FileDescriptor input_;
  int status_ = -1;
  bool isReaped_ = false;
};

}  // namespace test
