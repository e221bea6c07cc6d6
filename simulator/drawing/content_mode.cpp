#include <algorithm>

#include "simulator/drawing/canvas.hpp"

namespace drawing {
namespace {

enum class Scaling { Stretch, Fit, Fill, None };

struct Placement {
  Scaling scaling;
  // The fraction of the free space that is to the left of and above the content.
  double horizontal;
  double vertical;
};

// The index is the value of the content mode.
constexpr Placement placements[] = {
    {Scaling::Stretch, 0, 0},   // ScaleToFill
    {Scaling::Fit, 0.5, 0.5},   // AspectFit
    {Scaling::Fill, 0.5, 0.5},  // AspectFill
    {Scaling::Stretch, 0, 0},   // Redraw
    {Scaling::None, 0.5, 0.5},  // Center
    {Scaling::None, 0.5, 0},    // Top
    {Scaling::None, 0.5, 1},    // Bottom
    {Scaling::None, 0, 0.5},    // Left
    {Scaling::None, 1, 0.5},    // Right
    {Scaling::None, 0, 0},      // TopLeft
    {Scaling::None, 1, 0},      // TopRight
    {Scaling::None, 0, 1},      // BottomLeft
    {Scaling::None, 1, 1},      // BottomRight
};

Size scaledSize(const Size& content, const Rectangle& bounds, Scaling scaling) {
  if (scaling == Scaling::Stretch) return {bounds.width, bounds.height};
  if (scaling == Scaling::None || content.width <= 0 || content.height <= 0) return content;
  const double horizontal = bounds.width / content.width;
  const double vertical = bounds.height / content.height;
  const double factor = scaling == Scaling::Fit ? std::min(horizontal, vertical) : std::max(horizontal, vertical);
  return {content.width * factor, content.height * factor};
}

}  // namespace

Rectangle placeContent(const Size& content, const Rectangle& bounds, ContentMode mode) {
  const auto index = static_cast<std::size_t>(mode);
  const Placement& placement = placements[index < std::size(placements) ? index : 0];
  const Size size = scaledSize(content, bounds, placement.scaling);
  return {bounds.x + (bounds.width - size.width) * placement.horizontal,
          bounds.y + (bounds.height - size.height) * placement.vertical, size.width, size.height};
}

}  // namespace drawing
