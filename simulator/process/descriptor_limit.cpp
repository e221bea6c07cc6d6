#include "simulator/process/descriptor_limit.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "simulator/foundation/descriptor.hpp"

namespace process {

namespace {

constexpr std::size_t minDescriptors = 64;
// A higher limit slows down functions that close all possible descriptors.
constexpr rlim_t sufficientLimit = 4096;

bool canOpen(std::size_t count) {
  std::vector<foundation::FileDescriptor> opened;
  for (std::size_t index = 0; index < count; ++index) {
    opened.emplace_back(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0));
    if (!opened.back().isOpen()) return false;
  }
  return true;
}

}  // namespace

std::optional<std::string> raiseDescriptorLimit() {
  rlimit limit = {};
  if (getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur < sufficientLimit) {
    limit.rlim_cur = std::min(limit.rlim_max, sufficientLimit);
    setrlimit(RLIMIT_NOFILE, &limit);
  }
  if (canOpen(minDescriptors)) return std::nullopt;
  return "the program cannot open " + std::to_string(minDescriptors) +
         " files at the same time; raise the limit with ulimit -n, or close files that the program inherits";
}

}  // namespace process
