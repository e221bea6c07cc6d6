// Decoders and encoders of the image formats. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "simulator/drawing/cairo_handles.hpp"

namespace drawing {

// Returns whether an image of this size in pixels is within the limits. Decoders check this before they
// allocate memory.
bool isAcceptableSize(std::int64_t width, std::int64_t height);

// Decode an image file. Both functions return null if the data is not a complete image of the format, or if the image
// is too large.
SurfaceHandle decodePng(std::span<const std::byte> data);
SurfaceHandle decodeJpeg(std::span<const std::byte> data);

struct PixelSize {
  int width;
  int height;
};
// Returns the size in the header of PNG data, which has pngHeaderSize bytes. Returns nothing if the data is not the
// start of a PNG file, or if the image is too large.
inline constexpr std::size_t pngHeaderSize = 24;
std::optional<PixelSize> pngSize(std::span<const std::byte> header);

// Encode an image. Both functions return an empty vector on failure.
std::vector<std::byte> encodePng(cairo_surface_t* surface);
// `quality` is from 0 to 100.
std::vector<std::byte> encodeJpeg(cairo_surface_t* surface, int quality);

}  // namespace drawing
