// The blurred backdrop behind translucent views.
#pragma once

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/geometry.hpp"

namespace drawing {

// With the platform's numbers. Regular follows the appearance.
enum class BlurStyle { ExtraLight = 0, Light = 1, Dark = 2, Regular = 4 };

enum class Appearance { Light, Dark };

// The style of a platform's number; Regular for one that has none.
BlurStyle blurStyle(int number);

// Replaces what has been drawn beneath the area (points) by its blurred, more saturated and tinted picture, inside the
// corners and at this opacity, 0 to 1. The content reaches in from beyond the area's edge, as it does through frosted
// glass.
//
// Inside a layer it blurs what is to be seen on the canvas at that moment, the layers beneath included, and draws into
// the layer: a half transparent layer shows the backdrop half blended with the sharp content.
void blurBackdrop(Canvas& canvas, const Rectangle& area, const CornerShape& corners, BlurStyle style,
                  Appearance appearance, double alpha);

// How many pixels beyond the area's edge the content still reaches in.
int backdropReach(BlurStyle style, Appearance appearance, double pixelsPerPoint);

}  // namespace drawing
