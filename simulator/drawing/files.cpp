#include "simulator/drawing/files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <utility>

namespace drawing {
namespace {

constexpr off_t maxFileSize = 256 << 20;

class File {
 public:
  explicit File(int descriptor) : descriptor_(descriptor) {}
  ~File() { close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  bool close() { return descriptor_ < 0 || ::close(std::exchange(descriptor_, -1)) == 0; }

 private:
  int descriptor_;
};

bool writeAll(const File& file, std::span<const std::byte> content) {
  while (!content.empty()) {
    const ssize_t count = ::write(file.descriptor(), content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    content = content.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

std::string describe(const char* step, const std::filesystem::path& path, const char* reason) {
  return std::string(step) + " " + path.string() + ": " + reason;
}

// Returns an error for anything other than a regular file, because renaming would replace a device or a named pipe.
std::optional<std::string> checkReplaceable(const std::filesystem::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    // The symbolic links form a loop.
    return errno == ELOOP ? std::optional(describe("cannot write", path, std::strerror(ELOOP))) : std::nullopt;
  }
  if (S_ISREG(status.st_mode)) return std::nullopt;
  return describe("cannot replace", path, S_ISDIR(status.st_mode) ? "it is a folder" : "it is not a regular file");
}

// Follows symbolic links at the end of the path, because renaming a file to the path of a link would replace the link.
// The target of the last link can be missing.
std::filesystem::path withoutLinks(std::filesystem::path path) {
  constexpr int maxLinks = 40;
  std::error_code error;
  for (int count = 0; count < maxLinks; ++count) {
    const std::filesystem::path target = std::filesystem::read_symlink(path, error);
    if (error) break;
    path = path.parent_path() / target;
  }
  return path;
}

// Creates a temporary file in the folder of the path. `name` receives the path of the temporary file.
File createTemporary(const std::filesystem::path& path, std::string& name) {
  name = path.string() + ".XXXXXX";
  return File(mkostemp(name.data(), O_CLOEXEC));
}

std::string describeMissingTemporary(const std::filesystem::path& path, int error) {
  return describe("cannot create a temporary file next to", path, std::strerror(error));
}

}  // namespace

std::vector<std::byte> readRegularFile(const std::filesystem::path& path) {
  // Without O_NONBLOCK, opening a named pipe would block until a process writes to it.
  const File file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (!file.isOpen() || fstat(file.descriptor(), &status) != 0) return {};
  if (!S_ISREG(status.st_mode) || status.st_size > maxFileSize) return {};
  std::vector<std::byte> content(static_cast<std::size_t>(status.st_size));
  std::size_t filled = 0;
  while (filled < content.size()) {
    const ssize_t count = ::read(file.descriptor(), content.data() + filled, content.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return {};
    filled += static_cast<std::size_t>(count);
  }
  return content;
}

std::optional<std::string> checkWritable(const std::filesystem::path& requested) {
  if (auto error = checkReplaceable(requested)) return error;
  const std::filesystem::path path = withoutLinks(requested);
  std::string temporary;
  if (!createTemporary(path, temporary).isOpen()) return describeMissingTemporary(path, errno);
  unlink(temporary.c_str());
  return std::nullopt;
}

std::optional<std::string> writeFile(std::span<const std::byte> content, const std::filesystem::path& requested) {
  if (auto error = checkReplaceable(requested)) return error;
  const std::filesystem::path path = withoutLinks(requested);
  std::string temporary;
  File file = createTemporary(path, temporary);
  if (!file.isOpen()) return describeMissingTemporary(path, errno);
  // mkstemp creates a file that only the user can read. The written file has the usual permissions.
  const bool written = writeAll(file, content) && fchmod(file.descriptor(), 0644) == 0 && file.close() &&
                       std::rename(temporary.c_str(), path.c_str()) == 0;
  if (written) return std::nullopt;
  const int error = errno;
  unlink(temporary.c_str());
  return describe("cannot write", path, std::strerror(error));
}

}  // namespace drawing
