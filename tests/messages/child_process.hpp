// Another program, fed through its standard input; it is ended with its owner.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "simulator/foundation/descriptor.hpp"

namespace test {

class ChildProcess {
 public:
  // The program's path and its arguments. Its standard output is dropped.
  explicit ChildProcess(const std::vector<std::string>& command);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  void write(const std::string& lines) const;
  void closeInput() { input = {}; }
  void kill() const;
  // Whether it has ended by itself, with success.
  bool hasSucceeded();
  bool hasEnded();
  pid_t process() const { return child; }

 private:
  pid_t child = 0;
  foundation::Descriptor input;
  int status = -1;
  bool reaped = false;
};

}  // namespace test
