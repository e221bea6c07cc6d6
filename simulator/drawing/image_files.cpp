#include <array>
#include <cmath>

#include "simulator/drawing/codecs.hpp"
#include "simulator/drawing/files.hpp"
#include "simulator/drawing/image.hpp"

namespace drawing {
namespace {

struct ScaledName {
  double scale;
  const char* suffix;
};
// The suffix of the file name for each scale, the largest scale first.
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
  // If the path has no extension, the file at the path itself can still be an image.
  return path.has_extension() ? nullptr : loadImage(path);
}

std::optional<std::string> writePng(cairo_surface_t* surface, const std::filesystem::path& path) {
  const std::vector<std::byte> content = encodePng(surface);
  if (content.empty()) return "cannot encode the image for " + path.string();
  return writeFile(content, path);
}

std::optional<std::string> writePng(const Image& image, const std::filesystem::path& path) {
  return writePng(image.surface(), path);
}

}  // namespace drawing
