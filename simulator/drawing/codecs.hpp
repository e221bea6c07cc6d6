// The picture formats, one function a direction.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/drawing/cairo_handles.hpp"

namespace drawing {

// Whether a picture of this size may be decoded, asked before memory is taken for it.
bool isAcceptableSize(std::int64_t width, std::int64_t height);

// Null for what is not a whole picture of the format.
SurfaceHandle decodePng(std::span<const std::byte> data);
SurfaceHandle decodeJpeg(std::span<const std::byte> data);

// Empty when it cannot be written.
std::vector<std::byte> encodePng(cairo_surface_t* surface);
// Quality from 0 to 100.
std::vector<std::byte> encodeJpeg(cairo_surface_t* surface, int quality);

}  // namespace drawing
