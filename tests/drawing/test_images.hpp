// Colors, pixel components and images that several tests of drawing use, and a temporary folder for image files.
#pragma once

#include <gtest/gtest.h>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"
#include "tests/support/temporary_folder.hpp"

namespace drawing {

inline constexpr Color white{1, 1, 1, 1};
inline constexpr Color black{0, 0, 0, 1};
inline constexpr Color red{1, 0, 0, 1};
inline constexpr Color green{0, 1, 0, 1};
inline constexpr Color blue{0, 0, 1, 1};

inline int alphaOf(std::uint32_t pixel) { return static_cast<int>(pixel >> 24); }
inline int redOf(std::uint32_t pixel) { return static_cast<int>(pixel >> 16 & 0xFF); }
inline int greenOf(std::uint32_t pixel) { return static_cast<int>(pixel >> 8 & 0xFF); }
inline int blueOf(std::uint32_t pixel) { return static_cast<int>(pixel & 0xFF); }

// A square image with a different color in each quarter: red, green, blue and half-transparent white. `side` is in
// pixels.
inline std::shared_ptr<const Image> quarteredImage(int side, double scale = 1) {
  Canvas canvas({static_cast<double>(side), static_cast<double>(side)}, 1);
  const double half = side / 2.0;
  canvas.fillRectangle({0, 0, half, half}, red);
  canvas.fillRectangle({half, 0, half, half}, green);
  canvas.fillRectangle({0, half, half, half}, blue);
  canvas.fillRectangle({half, half, half, half}, {1, 1, 1, 0.5});
  SurfaceHandle pixels(cairo_surface_reference(canvas.surface()));
  return Image::fromSurface(std::move(pixels), scale);
}

inline std::vector<std::byte> bytesOf(const std::string& text) {
  const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
  return {bytes, bytes + text.size()};
}

inline bool samePixels(const Canvas& first, const Canvas& second) {
  return first.pixelsAsPng() == second.pixelsAsPng();
}

// A temporary folder for image files. Paths are relative to it.
class ImageFolder : public test::TemporaryFolder {
 public:
  std::filesystem::path operator/(const std::string& name) const { return path() / name; }

  void write(const std::string& name, std::span<const std::byte> content) const {
    std::ofstream file(path() / name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
  }
};

}  // namespace drawing
