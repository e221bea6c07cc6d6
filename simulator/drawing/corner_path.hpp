// Creates the outline of a rectangle with rounded corners.
#pragma once

#include <cairo.h>

#include <array>

#include "simulator/drawing/canvas.hpp"

namespace drawing {

// Returns the part of the rectangle that is within a million pixels of the canvas, because cairo cannot represent
// larger coordinates. Coordinates are in the units of the context.
Rectangle representable(cairo_t* context, Rectangle rectangle);

// Adds a closed outline to the context's path. Coordinates are in the units of the context. Does nothing if the
// rectangle is empty.
void addRoundedRectangle(cairo_t* context, const Rectangle& rectangle, const CornerShape& corners);

// The pixels of a rounded rectangle. The areas inside contain only completely covered pixels. Each area at the border
// contains a whole corner, or a partly covered edge. Areas do not overlap. An area can be empty.
struct DividedRectangle {
  std::array<PixelRectangle, 3> inside;
  std::array<PixelRectangle, 8> border;
};

// Coordinates are in the units of the context, whose transform must not rotate. A rectangle that is too small for the
// division is a single area at the border.
DividedRectangle divideRoundedRectangle(cairo_t* context, const Rectangle& rectangle, const CornerShape& corners);

}  // namespace drawing
