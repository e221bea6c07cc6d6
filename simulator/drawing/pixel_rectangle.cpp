#include "simulator/drawing/pixel_rectangle.hpp"

#include <algorithm>

namespace drawing {

namespace {

cairo_rectangle_int_t cairoRectangle(const PixelRectangle& area) { return {area.x, area.y, area.width, area.height}; }

}  // namespace

PixelRectangle intersection(const PixelRectangle& left, const PixelRectangle& right) {
  const int x = std::max(left.x, right.x);
  const int y = std::max(left.y, right.y);
  const PixelRectangle both = {x, y, std::min(left.x + left.width, right.x + right.width) - x,
                               std::min(left.y + left.height, right.y + right.height) - y};
  return both.isEmpty() ? PixelRectangle{} : both;
}

PixelRectangle boundingRectangle(const PixelRectangle& left, const PixelRectangle& right) {
  if (left.isEmpty()) return right;
  if (right.isEmpty()) return left;
  const int x = std::min(left.x, right.x);
  const int y = std::min(left.y, right.y);
  return {x, y, std::max(left.x + left.width, right.x + right.width) - x,
          std::max(left.y + left.height, right.y + right.height) - y};
}

RegionHandle regionOf(const PixelRectangle& area) {
  RegionHandle region(cairo_region_create());
  addTo(region.get(), area);
  return region;
}

void addTo(cairo_region_t* region, const PixelRectangle& area) {
  if (area.isEmpty()) return;
  const cairo_rectangle_int_t rectangle = cairoRectangle(area);
  cairo_region_union_rectangle(region, &rectangle);
}

cairo_region_overlap_t overlap(const cairo_region_t* region, const PixelRectangle& area) {
  if (area.isEmpty()) return CAIRO_REGION_OVERLAP_OUT;
  const cairo_rectangle_int_t rectangle = cairoRectangle(area);
  return cairo_region_contains_rectangle(region, &rectangle);
}

}  // namespace drawing
