// Materials: the translucent surfaces of visual effect views. A material shows the content behind it, its backdrop,
// blurred, saturated and tinted. Used on the thread of the canvas.
#pragma once

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/geometry.hpp"

namespace drawing {

// The platform's styles, with its numbers. Only Regular depends on the appearance.
enum class BlurStyle { ExtraLight = 0, Light = 1, Dark = 2, Regular = 4 };

enum class Appearance { Light, Dark };

// The style with the platform's number; Regular for an unknown number.
BlurStyle blurStyle(int number);

// Draws a material over the existing content. `area` is in points; its corners are rounded by `corners`. `alpha` is the
// opacity, from 0 to 1; if it is NaN, nothing is drawn. The blur samples content outside the area.
//
// Inside a layer, the backdrop is the content of the canvas and of all open layers, and the result is drawn into the
// innermost layer. A layer of half opacity therefore shows the material blended with the sharp backdrop.
void drawMaterial(Canvas& canvas, const Rectangle& area, const CornerShape& corners, BlurStyle style,
                  Appearance appearance, double alpha);

// The distance from the area, in pixels, up to which content affects the blur inside it.
int materialBlurMargin(BlurStyle style, Appearance appearance, double pixelsPerPoint);

}  // namespace drawing
