// Prepares text for layout. The result is valid UTF-8 of limited length, with line feeds as the only line endings. Any
// thread.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "simulator/drawing/text_layout.hpp"

namespace drawing {

// The range of bytes from `begin` up to, but not including, `end`. All bytes belong to one run of the paragraph.
struct Span {
  std::size_t begin;
  std::size_t end;
  std::size_t run;
};

struct PlainText {
  std::string text;
  std::vector<Span> spans;
};

// The maximum number of characters to read, and the maximum number of line feeds that end a line.
struct TextLimit {
  std::size_t characters;
  std::size_t lineFeeds = std::numeric_limits<std::size_t>::max();
};

// Returns a limit that is sufficient to fill this many lines of this width, and to detect that more text follows. The
// number of lines is unlimited if `lines` is 0 or less. The width is unlimited if it is infinite.
TextLimit textLimit(const Paragraph& paragraph, double width, int lines);

// Returns the text of all runs, up to the limit. Extremely long words contain additional line-break opportunities.
// Control characters, runs whose font has no size, and a line feed at the end of the text are omitted. Line feeds
// beyond the limit become spaces, because laying out a paragraph takes much longer than laying out a word. The text
// after them is included, because it can affect script and direction. Tabs after the first 500 become spaces.
PlainText plainText(const Paragraph& paragraph, TextLimit limit);

}  // namespace drawing
