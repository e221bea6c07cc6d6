// Materials: the translucent surfaces of visual effect views. A material shows its backdrop, the content behind it,
// blurred, saturated and tinted. Used on the thread of the canvas.
#pragma once

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/geometry.hpp"

namespace drawing {

// The platform's styles, with the platform's values. Only Regular looks different in the light and the dark appearance.
enum class BlurStyle { ExtraLight = 0, Light = 1, Dark = 2, Regular = 4 };

enum class Appearance { Light, Dark };

// Returns the style that has this value on the platform, or Regular if the value is unknown.
BlurStyle blurStyle(int number);

// Draws a material over the existing content. `area` is in points; its corners are rounded by `corners`. `alpha` is the
// opacity, from 0 to 1; if it is NaN, nothing is drawn. The blur also uses content outside the area.
//
// Inside a layer, the backdrop is the content of the canvas and of all open layers, and the result is drawn into the
// innermost layer. Therefore, a layer with an opacity of 0.5 shows the material blended with the backdrop, which is not
// blurred.
void drawMaterial(Canvas& canvas, const Rectangle& area, const CornerShape& corners, BlurStyle style,
                  Appearance appearance, double alpha);

// Returns the distance from the area, in pixels, up to which content affects the blur inside the area.
int materialBlurMargin(BlurStyle style, Appearance appearance, double pixelsPerPoint);

}  // namespace drawing
