// Rounds lengths in points to whole pixels. Scales are in pixels per point.
#pragma once

#include <cmath>

namespace drawing {

// The tolerance for rounding errors, in pixels. A length that exceeds a whole number of pixels by at most this value is
// treated as that number of pixels.
inline constexpr double pixelTolerance = 1e-6;

inline double ceilToPixel(double points, double scale) { return std::ceil(points * scale - pixelTolerance) / scale; }

inline double floorToPixel(double points, double scale) { return std::floor(points * scale + pixelTolerance) / scale; }

inline double roundToPixel(double points, double scale) { return std::round(points * scale) / scale; }

}  // namespace drawing
