// The description of a font, and its line metrics. Sizes are in points, scales in pixels per point. Any thread.
#pragma once

#include <string>

namespace drawing {

// The family of the system font. Noto fonts are used for characters that a font does not have. The system font replaces
// a family that is not installed.
inline constexpr const char* systemFontFamily = "Inter";

enum class Weight { Regular, Bold };

// A size that is not a positive number draws nothing and has no height. Sizes are limited to 1000 points.
struct Font {
  std::string family = systemFontFamily;
  double size = 17;
  Weight weight = Weight::Regular;
  friend bool operator==(const Font&, const Font&) = default;
};

// The size that is used for drawing: 0 for a size that is not a positive number, and at most 1000.
double effectiveSize(const Font& font);

// The height of a line in points, rounded up to whole pixels. It depends only on the size, because emoji and other
// scripts must not change the distance between lines. For example, 13 points have a line height of 16, and 15 points
// of 18.
double lineHeight(const Font& font, double scale);

// The distance in points from the top of a line to its baseline, rounded to a whole pixel.
double baselineOffset(const Font& font, double scale);

}  // namespace drawing
