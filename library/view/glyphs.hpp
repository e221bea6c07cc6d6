// The large picture of a banner and the badge beside it: the application's glyph in the colour that suits the banner.
#pragma once

#include "library/view/brim_container.hpp"

// Where the localised strings and the glyphs are installed.
inline NSString* assetBundlePath() { return "/Library/Application Support/Brim/Assets.bundle"_ns; }

// Gives all banners a fresh copy of the glyph table.
void resetGlyphTable();

// Shows the picture, and the badge that goes with it. nil clears the large picture.
void updateImage(BrimContainer* self, UIImage* picture);

// Gives a badge that shows a glyph the one for the current colours.
void recolourGlyph(BrimContainer* self);
