// The large picture of a banner, and the badge on the picture. At first, the picture is the application's icon. After
// updateImage, the picture is the sender's photo, and the badge shows the application's glyph or icon. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Places the picture below the clock, and creates the badge without an image.
void layOutIcon(BrimContainer* self, BrimContainerState& state);

// Shows the photo and the badge, and moves the texts away from the badge. If the photo is nil, the picture is cleared.
void updateImage(BrimContainer* self, UIImage* photo);

// If the badge shows a glyph, replaces it with the glyph for the current color mode.
void recolorGlyph(BrimContainer* self);
