// Applies the colors of a banner's color set to the subviews of the banner. Call these functions after the layout. Main
// thread.
#pragma once

#include "library/view/brim_container.hpp"

// Applies the colors immediately, including the color of the glyph.
void updateColors(BrimContainer* self);

// Stores a copy of the color set and fades to its colors. The glyph does not change. Does nothing if the banner has
// custom colors.
void updateColorMode(BrimContainer* self, BrimColors* colors);
