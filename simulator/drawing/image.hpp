// Decoded images, and the functions that read and write PNG and JPEG files.
//
// An image is immutable. It can be created and shared on any thread, but only one thread at a time can draw it. A
// function that creates an image returns null on failure.
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

// The maximum number of pixels of an image. A larger image is rejected before memory is allocated for it.
inline constexpr std::int64_t maxImagePixels = 64'000'000;

class Image {
 public:
  // Takes ownership of the surface and converts it to premultiplied ARGB32 if necessary. A scale that is not a positive
  // number is replaced by 1. Returns null if the surface is null, empty, in an error state, or not an image surface.
  static std::shared_ptr<const Image> fromSurface(SurfaceHandle surface, double scale, std::string name = {});

  // Like fromSurface, for the content of a file. If it has more than 4 million pixels, only a reduced copy is retained,
  // because a display cannot show more pixels. The size of the image is still that of the file.
  static std::shared_ptr<const Image> fromFile(SurfaceHandle surface, double scale, std::string name);

  // Like fromSurface, for a PNG file of the installation. The pixels are decoded when they are first needed, and freed
  // while only a resized copy is needed. Returns null if the file is missing or has no PNG header. A file that is
  // damaged after its header is drawn as a transparent image.
  static std::shared_ptr<const Image> fromInstalledFile(const std::filesystem::path& path, double scale);

  int pixelWidth() const { return pixelWidth_; }
  int pixelHeight() const { return pixelHeight_; }
  // The number of pixels per point.
  double scale() const { return scale_; }
  // The size in points.
  Size size() const { return {pixelWidth_ / scale_, pixelHeight_ / scale_}; }
  // The path of the file, or the name with which the image was requested. Empty if the image has neither.
  const std::string& name() const { return name_; }
  // Returns an image that shares the pixels and has another name.
  std::shared_ptr<const Image> named(std::string name) const;

  // Returns whether no pixel is transparent. An image whose pixels have not been decoded counts as transparent.
  bool isOpaque() const;

  // Returns a pixel as premultiplied 0xAARRGGBB. Returns 0 outside the image.
  std::uint32_t pixel(int x, int y) const;
  // The size of the surface in pixels. It is smaller than that of the image if only a reduced copy is retained.
  int surfaceWidth() const { return surfaceWidth_; }
  int surfaceHeight() const { return surfaceHeight_; }
  // The retained pixels of the image. The surface is borrowed and must not be changed. The surface of an installed file
  // is valid until the next call of resizedSurface.
  cairo_surface_t* surface() const;
  // Returns the image scaled to this size in pixels. The result is borrowed and valid until the next call. The last two
  // results of a small image are cached, because the home screen and a banner show an icon at two sizes in each frame.
  // For a large image, only the last one is cached.
  cairo_surface_t* resizedSurface(int width, int height) const;

 private:
  Image(SurfaceHandle surface, double scale, std::string name);
  Image(std::filesystem::path file, int width, int height, double scale);

  enum class Opacity { Unknown, Opaque, Transparent };

  mutable Opacity opacity_ = Opacity::Unknown;
  mutable SurfaceHandle surface_;
  mutable SurfaceHandle resized_;   // the last result of resizedSurface
  mutable SurfaceHandle previous_;  // the result before it
  int pixelWidth_;
  int pixelHeight_;
  int surfaceWidth_;
  int surfaceHeight_;
  double scale_;
  std::string name_;
  std::filesystem::path file_;  // empty unless the pixels can be decoded again
};

// Decodes PNG or JPEG data. The content determines the format. Returns null for data in another format, for damaged or
// truncated data, and for an image with more pixels than the limit. `scale` has the same meaning as in
// Image::fromSurface.
std::shared_ptr<const Image> decodeImage(std::span<const std::byte> data, double scale = 1, std::string name = {});

// Reads an image file. The name of the image is the path. "@2x" or "@3x" before the extension sets the scale. Returns
// null if the file is missing, unreadable, not a regular file or not an image.
std::shared_ptr<const Image> loadImage(const std::filesystem::path& path);

// Reads the variant of an image that matches a screen best. For "folder/mail.png" and scale 3 it tries
// "folder/mail@3x.png" and then the other scales, the largest first. If the path has no extension, it tries the
// extension ".png" first, and then the path itself. The name of the image is `path`. Returns null if no variant can be
// read.
std::shared_ptr<const Image> loadImageNamed(const std::filesystem::path& path, double preferredScale);

// Encodes an image as PNG. Returns an empty vector if there is not enough memory.
std::vector<std::byte> encodePng(const Image& image);

// Encodes an image as JPEG. The quality is clamped to the range from 0 to 1; NaN is replaced by 1. Transparent pixels
// are blended with white. Returns an empty vector on failure.
std::vector<std::byte> encodeJpeg(const Image& image, double quality);

// Writes a PNG file atomically: after a failure, an existing file is unchanged. Returns a description of the error, or
// nothing on success.
[[nodiscard]] std::optional<std::string> writePng(cairo_surface_t* surface, const std::filesystem::path& path);
[[nodiscard]] std::optional<std::string> writePng(const Image& image, const std::filesystem::path& path);

}  // namespace drawing
