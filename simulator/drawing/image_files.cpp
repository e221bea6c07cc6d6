#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "simulator/drawing/codecs.hpp"
#include "simulator/drawing/image.hpp"

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

bool writeAll(const File& file, std::span<const std::byte> content) {
  while (!content.empty()) {
    const ssize_t count = ::write(file.descriptor(), content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    content = content.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

struct ScaledName {
  double scale;
  const char* suffix;
};
// The suffixes of file names for each scale, the largest scale first.
constexpr std::array<ScaledName, 3> scaledNames{{{3, "@3x"}, {2, "@2x"}, {1, ""}}};

double scaleInName(const std::filesystem::path& path) {
  const std::string stem = path.stem().string();
  for (const ScaledName& candidate : scaledNames) {
    if (stem.ends_with(candidate.suffix)) return candidate.scale;
  }
  return 1;
}

std::filesystem::path variant(const std::filesystem::path& path, const ScaledName& name) {
  const std::string extension = path.has_extension() ? path.extension().string() : ".png";
  return path.parent_path() / (path.stem().string() + name.suffix + extension);
}

std::string describe(const char* step, const std::filesystem::path& path, int error) {
  return std::string(step) + " " + path.string() + ": " + std::strerror(error);
}

std::optional<std::string> writeAtomically(std::span<const std::byte> content, const std::filesystem::path& path) {
  std::string temporary = path.string() + ".XXXXXX";
  File file(mkostemp(temporary.data(), O_CLOEXEC));
  if (!file.isOpen()) return describe("cannot create a temporary file next to", path, errno);
  // A temporary file has no permissions for other users, so they are added.
  const bool written = writeAll(file, content) && fchmod(file.descriptor(), 0644) == 0 && file.close() &&
                       std::rename(temporary.c_str(), path.c_str()) == 0;
  if (written) return std::nullopt;
  const int error = errno;
  unlink(temporary.c_str());
  return describe("cannot write", path, error);
}

}  // namespace

std::shared_ptr<const Image> loadImage(const std::filesystem::path& path) {
  return decodeImage(readRegularFile(path), scaleInName(path), path.string());
}

std::shared_ptr<const Image> loadImageNamed(const std::filesystem::path& path, double preferredScale) {
  if (!path.has_filename()) return nullptr;
  const auto load = [&path](const ScaledName& candidate) -> std::shared_ptr<const Image> {
    const std::vector<std::byte> content = readRegularFile(variant(path, candidate));
    return decodeImage(content, candidate.scale == 1 ? scaleInName(path) : candidate.scale, path.string());
  };
  for (const ScaledName& candidate : scaledNames) {
    if (std::abs(candidate.scale - preferredScale) > 0.001) continue;
    if (auto image = load(candidate)) return image;
  }
  for (const ScaledName& candidate : scaledNames) {
    if (auto image = load(candidate)) return image;
  }
  // The path has no extension here. The file at the path itself can still be an image.
  return path.has_extension() ? nullptr : loadImage(path);
}

std::optional<std::string> writePng(cairo_surface_t* surface, const std::filesystem::path& path) {
  const std::vector<std::byte> content = encodePng(surface);
  if (content.empty()) return "cannot encode the image for " + path.string();
  return writeAtomically(content, path);
}

std::optional<std::string> writePng(const Image& image, const std::filesystem::path& path) {
  return writePng(image.surface(), path);
}

}  // namespace drawing
