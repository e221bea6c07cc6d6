// The large picture of a banner and the badge on it. At first the picture is the application's icon. After updateImage
// it is the sender's photo, and the badge shows the application's glyph or icon. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Places the picture below the clock, and creates the badge without an image.
void layOutIcon(BrimContainer* self, BrimContainerState& state);

// Shows the photo and the badge, and moves the texts away from the badge. nil clears the picture.
void updateImage(BrimContainer* self, UIImage* photo);

// Replaces a glyph that the badge shows by the glyph for the current colors.
void recolorGlyph(BrimContainer* self);
