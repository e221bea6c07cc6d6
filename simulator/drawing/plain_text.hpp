// Text made safe for shaping: valid, of bounded length, with one kind of line end.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "simulator/drawing/text_layout.hpp"

namespace drawing {

// The bytes from begin up to end belong to one run.
struct Span {
  std::size_t begin;
  std::size_t end;
  std::size_t run;
};

struct PlainText {
  std::string text;
  std::vector<Span> spans;
};

// How many characters are enough to fill this many lines of this width (unlimited: 0 lines, infinite width).
std::size_t characterLimit(const Paragraph& paragraph, double width, int lines);

// The runs' text up to that many characters, with places to break in words beyond all measure. Control characters and
// runs whose font has no size are left out, and so is a line feed at the very end.
PlainText plainText(const Paragraph& paragraph, std::size_t characterLimit);

}  // namespace drawing
