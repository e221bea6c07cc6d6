// Truncates the last visible line of a text with an ellipsis. Used by one thread at a time.
#pragma once

#include <pango/pango.h>

#include <cstddef>

#include "simulator/drawing/font_library.hpp"
#include "simulator/drawing/plain_text.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace drawing {

// Lays out the last visible line of the text again. The result is one line of at most `width` points. It contains the
// text from the start of `line` to the end of its paragraph, and an ellipsis for the omitted text.
LayoutHandle truncateLine(const PlainText& text, const Paragraph& paragraph, double width, const PangoLayoutLine* line);

}  // namespace drawing
