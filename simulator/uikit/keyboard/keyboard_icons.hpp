// Draws the icons of the keys that have no text.
#pragma once

#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/keyboard/keyboard_layout.hpp"

namespace uikit {

// Draws the icon of a key at the center of the key's area, reduced if it does not fit. Draws nothing for a key with
// text. The shift icon is filled if shift is on.
void drawKeyIcon(drawing::Canvas& canvas, KeyRole role, Shift shift, const drawing::Rectangle& area,
                 const drawing::Color& color);

}  // namespace uikit
