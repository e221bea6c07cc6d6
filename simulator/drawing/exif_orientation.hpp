// Reads the orientation of a photo from the metadata of a JPEG file, and rotates the photo upright. Any thread.
#pragma once

#include <cstddef>
#include <span>

#include "simulator/drawing/cairo_handles.hpp"

namespace drawing {

// The transformation that shows the stored pixels upright. The values are those of the Exif standard. RotatedRight is a
// clockwise rotation by 90 degrees.
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

// Reads the orientation from the metadata segment of a JPEG file. Returns Upright if the segment has no valid
// orientation.
Orientation orientationIn(std::span<const std::byte> segment);

// Returns the upright picture, or null if there is not enough memory.
SurfaceHandle uprightPicture(SurfaceHandle picture, Orientation orientation);

}  // namespace drawing
