#include "simulator/process/standard_streams.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>

namespace process {

void reserveStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) >= 0) continue;
    // The opposite access mode makes each use of the descriptor fail. open() returns the lowest free number, which is
    // `descriptor`.
    open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

int printAndExit(const char* program, const std::string& text) {
  if (std::cout << text << std::flush) return 0;
  std::fprintf(stderr, "%s: cannot write to standard output\n", program);
  return 1;
}

// The stream object does not distinguish an error from the end, because it reads from the C library's stream.
bool failedToReadStandardInput() { return std::cin.bad() || std::ferror(stdin) != 0; }

}  // namespace process
