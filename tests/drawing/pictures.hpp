// What several tests of the pixel layer need: colors of pixels and a scratch folder.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"

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

// A picture with a different color in each quarter: red, green, blue and half transparent white.
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

// Removed with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "drawing-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~ScratchFolder() { std::filesystem::remove_all(path_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  const std::filesystem::path& path() const { return path_; }

  void write(const std::string& name, std::span<const std::byte> content) const {
    std::ofstream file(path_ / name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace drawing
