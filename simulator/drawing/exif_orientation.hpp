// How a camera was held: what a JPEG's metadata says about the way its pixels are to be turned.
#pragma once

#include <cstddef>
#include <span>

#include "simulator/drawing/cairo_handles.hpp"

namespace drawing {

// With the numbers of the metadata's standard. RotatedRight was taken with the camera turned: its pixels are to be
// turned a quarter clockwise.
enum class Orientation {
  Upright = 1,
  Mirrored = 2,
  UpsideDown = 3,
  UpsideDownMirrored = 4,
  Transposed = 5,
  RotatedRight = 6,
  Transversed = 7,
  RotatedLeft = 8,
};

// Of the segment in which a JPEG keeps its metadata. Upright where it says nothing, or nothing that can be read.
Orientation orientationIn(std::span<const std::byte> segment);

// The picture the right way up; null when memory is short.
SurfaceHandle turnedUpright(SurfaceHandle picture, Orientation orientation);

}  // namespace drawing
