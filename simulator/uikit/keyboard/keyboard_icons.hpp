// The pictures on the keys that bear no word, drawn around a middle.
#pragma once

#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/keyboard/keyboard_layout.hpp"

namespace uikit {

// Nothing for a key that bears a word. A pressed shift is filled.
void drawKeyIcon(drawing::Canvas& canvas, KeyRole role, Shift shift, const drawing::Point& middle,
                 const drawing::Color& color);

}  // namespace uikit
