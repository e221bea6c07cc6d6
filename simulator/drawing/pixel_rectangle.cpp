#include "simulator/drawing/pixel_rectangle.hpp"

#include <algorithm>

namespace drawing {

PixelRectangle common(const PixelRectangle& left, const PixelRectangle& right) {
  const int x = std::max(left.x, right.x);
  const int y = std::max(left.y, right.y);
  const PixelRectangle both = {x, y, std::min(left.x + left.width, right.x + right.width) - x,
                               std::min(left.y + left.height, right.y + right.height) - y};
  return both.isEmpty() ? PixelRectangle{} : both;
}

PixelRectangle united(const PixelRectangle& left, const PixelRectangle& right) {
  if (left.isEmpty()) return right;
  if (right.isEmpty()) return left;
  const int x = std::min(left.x, right.x);
  const int y = std::min(left.y, right.y);
  return {x, y, std::max(left.x + left.width, right.x + right.width) - x,
          std::max(left.y + left.height, right.y + right.height) - y};
}

RegionHandle regionOf(const PixelRectangle& area) {
  if (area.isEmpty()) return RegionHandle(cairo_region_create());
  const cairo_rectangle_int_t rectangle = {area.x, area.y, area.width, area.height};
  return RegionHandle(cairo_region_create_rectangle(&rectangle));
}

}  // namespace drawing
