// Text broken into lines of a width, the last one shortened where there is more.
#pragma once

#include <pango/pango.h>

#include <vector>

#include "simulator/drawing/font_library.hpp"
#include "simulator/drawing/plain_text.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace drawing {

struct BrokenLine {
  // Owned by one of the layouts.
  PangoLayoutLine* line;
  double width;
};

struct BrokenText {
  std::vector<LayoutHandle> layouts;
  std::vector<BrokenLine> lines;
};

// An infinite width and 0 lines are no limit.
BrokenText breakLines(const PlainText& text, const Paragraph& paragraph, double width, int lines);

}  // namespace drawing
