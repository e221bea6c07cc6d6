// What this process and those that it starts say on standard error, to be read instead of shown.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/temporary_folder.hpp"

namespace test {

class CapturedErrors {
 public:
  CapturedErrors() : shown(dup(STDERR_FILENO)) {
    const int file = open(path().c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(file, STDERR_FILENO);
    close(file);
  }
  CapturedErrors(const CapturedErrors&) = delete;
  CapturedErrors& operator=(const CapturedErrors&) = delete;
  ~CapturedErrors() {
    dup2(shown, STDERR_FILENO);
    close(shown);
  }

  std::string text() const {
    std::ifstream file(path());
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool contain(const std::string& wanted) const { return text().find(wanted) != std::string::npos; }

 private:
  std::string path() const { return (folder.path() / "errors").string(); }

  TemporaryFolder folder;
  int shown;
};

}  // namespace test
