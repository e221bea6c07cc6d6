#include "simulator/base/file_contents.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace base {

namespace {

std::string readAll(int descriptor, std::size_t size) {
  std::string text(size, '\0');
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = read(descriptor, text.data() + filled, size - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    filled += static_cast<std::size_t>(count);
  }
  text.resize(filled);
  return text;
}

}  // namespace

std::optional<std::string> readRegularFile(const std::filesystem::path& file, std::size_t most) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  struct stat status = {};
  std::optional<std::string> text;
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && static_cast<std::size_t>(status.st_size) <= most)
    text = readAll(descriptor, static_cast<std::size_t>(status.st_size));
  close(descriptor);
  return text;
}

}  // namespace base
