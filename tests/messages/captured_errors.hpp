// Redirects standard error of this process and of its child processes into a file, where a test can read it.
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
  CapturedErrors() : originalDescriptor_(dup(STDERR_FILENO)) {
    const int file = open(path().c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(file, STDERR_FILENO);
    close(file);
  }
  CapturedErrors(const CapturedErrors&) = delete;
  CapturedErrors& operator=(const CapturedErrors&) = delete;
  ~CapturedErrors() {
    dup2(originalDescriptor_, STDERR_FILENO);
    close(originalDescriptor_);
  }

  std::string text() const {
    std::ifstream file(path());
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool contains(const std::string& part) const { return text().find(part) != std::string::npos; }

 private:
  std::string path() const { return (folder_.path() / "errors").string(); }

  TemporaryFolder folder_;
  int originalDescriptor_;
};

}  // namespace test
