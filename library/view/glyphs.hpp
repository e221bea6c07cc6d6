// The glyphs of the supported applications. Each glyph exists in black and in white. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Creates the table of glyphs, and releases the previous table. Call this function before `glyph`.
void resetGlyphTable();

// Returns the glyph of the banner's application, in the color that is readable in the banner's color mode. Returns nil
// if the application is not supported or the asset bundle does not contain the glyph.
UIImage* glyph(const BrimContainerState& state);
