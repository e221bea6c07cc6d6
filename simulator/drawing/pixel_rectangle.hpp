// Rectangles in whole pixels of a canvas.
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

// What both have; empty where they do not touch.
PixelRectangle common(const PixelRectangle& left, const PixelRectangle& right);
// The smallest around both; an empty one takes no room.
PixelRectangle united(const PixelRectangle& left, const PixelRectangle& right);

RegionHandle regionOf(const PixelRectangle& area);
void addTo(cairo_region_t* region, const PixelRectangle& area);
// How much of the rectangle lies in the region; nothing of an empty one.
cairo_region_overlap_t overlap(const cairo_region_t* region, const PixelRectangle& area);

}  // namespace drawing
