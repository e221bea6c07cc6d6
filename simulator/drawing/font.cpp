#include "simulator/drawing/font.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/drawing/pixel_grid.hpp"

namespace drawing {
namespace {

constexpr double maxSize = 1000;

// In shares of the size. The system font's own ascent and descent fill 1.21; its letters stay clear of the edges.
constexpr double lineShare = 1.2;
constexpr double ascent = 0.969;
constexpr double descent = 0.242;

}  // namespace

double effectiveSize(const Font& font) { return font.size > 0 ? std::min(font.size, maxSize) : 0; }

double lineHeight(const Font& font, double scale) { return ceilToPixel(lineShare * effectiveSize(font), scale); }

double baselineOffset(const Font& font, double scale) {
  return roundToPixel((lineHeight(font, scale) + (ascent - descent) * effectiveSize(font)) / 2, scale);
}

}  // namespace drawing
