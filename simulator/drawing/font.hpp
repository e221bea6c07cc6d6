// A font as views ask for it, and its line metrics.
#pragma once

#include <string>

namespace drawing {

// The family of the system font. Characters it lacks come from Noto fonts; so does a family that is not installed.
inline constexpr const char* systemFontFamily = "Inter";

enum class Weight { Regular, Bold };

// Size in points. Sizes that are not positive numbers draw nothing and have no height; they are limited to 1000 points.
struct Font {
  std::string family = systemFontFamily;
  double size = 17;
  Weight weight = Weight::Regular;
  friend bool operator==(const Font&, const Font&) = default;
};

// The size that is really used: 0 for one that is not a positive number, at most 1000.
double effectiveSize(const Font& font);

// A line's height in points, rounded up to whole pixels at this many pixels per point. It depends on the size alone, so
// that emoji and other scripts do not move the lines around them: 13 points have 16 at scale 1 and 2, 15 have 18.
double lineHeight(const Font& font, double scale);

// From a line's top to its baseline, on a whole pixel.
double baselineOffset(const Font& font, double scale);

}  // namespace drawing
