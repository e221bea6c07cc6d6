// Creates the outline of a rectangle with rounded corners.
#pragma once

#include <cairo.h>

#include "simulator/drawing/canvas.hpp"

namespace drawing {

// Returns the part of the rectangle that is within a million pixels of the canvas, because cairo cannot represent
// larger coordinates. Coordinates are in the units of the context.
Rectangle representable(cairo_t* context, Rectangle rectangle);

// Adds a closed outline to the context's path. Coordinates are in the units of the context. Does nothing if the
// rectangle is empty.
void addRoundedRectangle(cairo_t* context, const Rectangle& rectangle, const CornerShape& corners);

}  // namespace drawing
