// Rectangles and regions, measured in whole pixels of a canvas.
#pragma once

#include "simulator/drawing/cairo_handles.hpp"

namespace drawing {

struct PixelRectangle {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  bool isEmpty() const { return width <= 0 || height <= 0; }
  PixelRectangle outset(int margin) const { return {x - margin, y - margin, width + 2 * margin, height + 2 * margin}; }
  friend bool operator==(const PixelRectangle&, const PixelRectangle&) = default;
};

// Returns the intersection of the rectangles. It is empty if they do not overlap.
PixelRectangle intersection(const PixelRectangle& left, const PixelRectangle& right);
// Returns the smallest rectangle that contains both rectangles. An empty rectangle is ignored.
PixelRectangle boundingRectangle(const PixelRectangle& left, const PixelRectangle& right);

RegionHandle regionOf(const PixelRectangle& area);
void addTo(cairo_region_t* region, const PixelRectangle& area);
// Returns whether the rectangle lies inside, outside or partly inside the region. An empty rectangle lies outside.
cairo_region_overlap_t overlap(const cairo_region_t* region, const PixelRectangle& area);

}  // namespace drawing
