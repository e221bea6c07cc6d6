// A decoded picture, and how one is read from and written to PNG and JPEG.
//
// An image never changes once made; it may be shared freely and decoded on any thread, and is drawn on one thread at a
// time. Functions that make one answer nullptr when they cannot.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "simulator/drawing/cairo_handles.hpp"
#include "simulator/drawing/geometry.hpp"

namespace drawing {

// A picture with more pixels is refused from its header, before anything is allocated for it.
inline constexpr std::int64_t maxImagePixels = 64'000'000;

class Image {
 public:
  // Takes the surface, converting it to premultiplied ARGB32 where it is in another format. A scale that is not a
  // positive number counts as 1. nullptr when there is no surface, or it is in an error state or not made of pixels.
  static std::shared_ptr<const Image> fromSurface(SurfaceHandle surface, double scale, std::string name = {});

  int pixelWidth() const { return pixelWidth_; }
  int pixelHeight() const { return pixelHeight_; }
  // Pixels per point.
  double scale() const { return scale_; }
  // In points.
  Size size() const { return {pixelWidth_ / scale_, pixelHeight_ / scale_}; }
  // The file it came from or the name it was asked for by; empty when it has neither.
  const std::string& name() const { return name_; }
  // The same pixels, shared, under another name.
  std::shared_ptr<const Image> named(std::string name) const;

  // Premultiplied 0xAARRGGBB; 0 outside the picture.
  std::uint32_t pixel(int x, int y) const;
  // Borrowed, for reading only.
  cairo_surface_t* surface() const { return surface_.get(); }
  // The picture at another size in pixels, borrowed until the next call: the last size asked for is kept, because an
  // icon is drawn at one size frame after frame.
  cairo_surface_t* surfaceResized(int width, int height) const;

 private:
  Image(SurfaceHandle surface, double scale, std::string name);

  SurfaceHandle surface_;
  mutable SurfaceHandle resized_;
  int pixelWidth_;
  int pixelHeight_;
  double scale_;
  std::string name_;
};

// PNG and JPEG, told apart by their content. nullptr for anything else, for damaged or truncated data, and above the
// pixel limit. Scale as for Image::fromSurface.
std::shared_ptr<const Image> decodeImage(std::span<const std::byte> data, double scale = 1, std::string name = {});

// A file's picture, named by its path; "@2x" or "@3x" before the extension sets the scale. nullptr when the file is
// missing, unreadable, not a regular file or not a picture.
std::shared_ptr<const Image> loadImage(const std::filesystem::path& path);

// The variant of a picture that suits a screen best: for "folder/mail.png" and scale 3 it tries "folder/mail@3x.png",
// then the other scales, denser ones first. Without an extension it tries ".png", then the name as it is. Named by the
// path asked for.
std::shared_ptr<const Image> loadImageNamed(const std::filesystem::path& path, double preferredScale);

// Empty only when memory is short.
std::vector<std::byte> encodePng(const Image& image);

// Quality from 0 to 1, clamped (what is not a number counts as 1). Transparent parts become white.
std::vector<std::byte> encodeJpeg(const Image& image, double quality);

// Writes a PNG so that the path holds either the whole new picture or what it held before. The answer is the reason of
// a failure, nothing on success.
[[nodiscard]] std::optional<std::string> writePng(cairo_surface_t* surface, const std::filesystem::path& path);
[[nodiscard]] std::optional<std::string> writePng(const Image& image, const std::filesystem::path& path);

}  // namespace drawing
