// Runs a shell command and captures its output.
#pragma once

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace device {

struct CommandOutput {
  int status;
  std::string text;  // standard output and standard error
};

inline CommandOutput outputOf(const std::string& command) {
  std::FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
  std::string text;
  std::array<char, 4096> read{};
  for (std::size_t count = 0; (count = std::fread(read.data(), 1, read.size(), pipe)) > 0;)
    text.append(read.data(), count);
  return {pclose(pipe), text};
}

}  // namespace device
