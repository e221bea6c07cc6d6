// Prepares text for layout: makes it valid UTF-8 of limited length, with line feeds as the only line endings. Any
// thread.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "simulator/drawing/text_layout.hpp"

namespace drawing {

// The bytes from `begin` up to, but not including, `end`. They belong to one run of the paragraph.
struct Span {
  std::size_t begin;
  std::size_t end;
  std::size_t run;
};

struct PlainText {
  std::string text;
  std::vector<Span> spans;
};

// The maximum number of characters that are read, and of line feeds that end a line.
struct TextLimit {
  std::size_t characters;
  std::size_t lineFeeds = std::numeric_limits<std::size_t>::max();
};

// A limit that is sufficient to fill this many lines of this width, and to detect that more text follows. 0 lines or an
// infinite width mean no limit.
TextLimit textLimit(const Paragraph& paragraph, double width, int lines);

// The text of all runs, up to the limit. Extremely long words contain additional places for line breaks. Control
// characters, runs whose font has no size, and a line feed at the end of the text are omitted. Line feeds beyond the
// limit become spaces, because the layout of a paragraph takes much longer than that of a word. The text after them
// remains, because it can affect script and direction.
PlainText plainText(const Paragraph& paragraph, TextLimit limit);

}  // namespace drawing
