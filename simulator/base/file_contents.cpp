#include "simulator/base/file_contents.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace base {

namespace {

std::string readAll(int descriptor, std::size_t size) {
  std::string contents(size, '\0');
  std::size_t length = 0;
  while (length < size) {
    const ssize_t count = read(descriptor, contents.data() + length, size - length);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    length += static_cast<std::size_t>(count);
  }
  contents.resize(length);
  return contents;
}

}  // namespace

std::optional<std::string> readRegularFile(const std::filesystem::path& file, std::size_t maxBytes) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  struct stat status = {};
  std::optional<std::string> contents;
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
      static_cast<std::size_t>(status.st_size) <= maxBytes)
    contents = readAll(descriptor, static_cast<std::size_t>(status.st_size));
  close(descriptor);
  return contents;
}

}  // namespace base
