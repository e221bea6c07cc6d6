// Puts the colors of a banner's color set on its existing subviews. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// At once, the glyph included.
void updateColors(BrimContainer* self);

// Stores the color set and fades to its colors. The glyph does not change. Does nothing if the banner has custom
// colors.
void updateColorMode(BrimContainer* self, BrimColors* colors);
