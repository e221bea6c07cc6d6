// Text made safe for shaping: valid, of bounded length, with one kind of line end.
#pragma once

#include <cstddef>
#include <limits>
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

// How much of a text is looked at, and how many of its line feeds end a paragraph.
struct TextLimit {
  std::size_t characters;
  std::size_t lineFeeds = std::numeric_limits<std::size_t>::max();
};

// As much as fills this many lines of this width and tells that there is more (unlimited: 0 lines, infinite width).
TextLimit textLimit(const Paragraph& paragraph, double width, int lines);

// The runs' text up to that many characters, with places to break in words beyond all measure. Control characters and
// runs whose font has no size are left out, and so is a line feed at the very end. Line feeds beyond the limit are
// blanks: a paragraph takes far longer to lay out than a word, and what is hidden still tells scripts and direction.
PlainText plainText(const Paragraph& paragraph, TextLimit limit);

}  // namespace drawing
