// The glyphs of the supported applications. A glyph has the color that is readable on the banner. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Fills the glyph table again, with new objects.
void resetGlyphTable();

// The glyph of the banner's application. nil if the application or the bundle has none.
UIImage* glyph(const BrimContainerState& state);
