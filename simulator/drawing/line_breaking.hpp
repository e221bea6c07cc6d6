// Breaks text into lines of a maximum width. Truncates the last line if necessary. Used by one thread at a time.
#pragma once

#include <pango/pango.h>

#include <vector>

#include "simulator/drawing/font_library.hpp"
#include "simulator/drawing/plain_text.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace drawing {

struct BrokenLine {
  PangoLayoutLine* line;  // owned by one of the layouts
  double width;           // in points
};

struct BrokenText {
  std::vector<LayoutHandle> layouts;
  std::vector<BrokenLine> lines;
};

// Breaks the text into at most `lines` lines of at most `width` points. The width is unlimited if it is infinite. The
// number of lines is unlimited if `lines` is 0 or less.
BrokenText breakLines(const PlainText& text, const Paragraph& paragraph, double width, int lines);

}  // namespace drawing
