// Describes fonts, colors and widths to pango. Used by one thread at a time.
#pragma once

#include <pango/pango.h>

#include "simulator/drawing/font_library.hpp"
#include "simulator/drawing/plain_text.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace drawing {

// Returns the fonts and colors of the text. The spans of the text refer to the runs of the paragraph.
AttributesHandle attributesOf(const PlainText& text, const Paragraph& paragraph);

// Sets the maximum width of lines, in points. The width is unlimited if it is infinite.
void setWidth(PangoLayout* layout, double width);

}  // namespace drawing
