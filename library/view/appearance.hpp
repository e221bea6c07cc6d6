// Puts a banner's colour set on its views, at once or fading.
#pragma once

#include "library/view/brim_container.hpp"

// At once, the glyph included.
void updateColors(BrimContainer* self);

// Takes the set and fades to it, the glyph left alone. Custom colours pin a banner's look: nothing changes then.
void updateColorMode(BrimContainer* self, BrimColors* colors);
