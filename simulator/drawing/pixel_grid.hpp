// Points rounded to whole pixels.
#pragma once

#include <cmath>

namespace drawing {

// What is this little beyond a pixel's edge is an error of calculation.
inline constexpr double pixelTolerance = 1e-6;

inline double ceilToPixel(double points, double scale) { return std::ceil(points * scale - pixelTolerance) / scale; }

inline double floorToPixel(double points, double scale) { return std::floor(points * scale + pixelTolerance) / scale; }

inline double roundToPixel(double points, double scale) { return std::round(points * scale) / scale; }

}  // namespace drawing
