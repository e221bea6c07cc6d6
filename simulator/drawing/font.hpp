// The description of a font, and the functions that compute the metrics of its lines. Sizes are in points. Scales are
// in pixels per point. Any thread.
#pragma once

#include <string>

namespace drawing {

// The family of the system font. The system font replaces a font family that is not installed. Noto fonts show the
// characters that a font lacks.
inline constexpr const char* systemFontFamily = "Inter";

enum class Weight { Regular, Bold };

// A font. Text whose size is not a positive number is not drawn and has no height. Sizes are limited to 1000 points.
struct Font {
  std::string family = systemFontFamily;
  double size = 17;
  Weight weight = Weight::Regular;
  friend bool operator==(const Font&, const Font&) = default;
};

// Returns the size that is used for drawing: 0 if the size of the font is not a positive number, and at most 1000.
double effectiveSize(const Font& font);

// Returns the height of a line in points, rounded up to whole pixels. The height depends only on the size of the font,
// because emoji and other scripts must not change the distance between lines. For example, the line height is 16 points
// for a font of 13 points, and 18 points for a font of 15 points.
double lineHeight(const Font& font, double scale);

// Returns the distance in points from the top of a line to its baseline, rounded to a whole pixel.
double baselineOffset(const Font& font, double scale);

}  // namespace drawing
