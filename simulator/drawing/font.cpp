#include "simulator/drawing/font.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/drawing/pixel_grid.hpp"

namespace drawing {
namespace {

constexpr double maxSize = 1000;

// The metrics of the system font as multiples of the font size. The sum of ascent and descent is slightly larger than
// the line height, but the glyphs do not fill it.
constexpr double lineHeightFactor = 1.2;
constexpr double ascentFactor = 0.969;
constexpr double descentFactor = 0.242;

}  // namespace

double effectiveSize(const Font& font) { return font.size > 0 ? std::min(font.size, maxSize) : 0; }

double lineHeight(const Font& font, double scale) { return ceilToPixel(lineHeightFactor * effectiveSize(font), scale); }

double baselineOffset(const Font& font, double scale) {
  return roundToPixel((lineHeight(font, scale) + (ascentFactor - descentFactor) * effectiveSize(font)) / 2, scale);
}

}  // namespace drawing
