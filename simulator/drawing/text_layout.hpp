// Lays out text in lines, measures the text and draws it. Lengths are in points. Used by one thread at a time.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/drawing/font.hpp"
#include "simulator/drawing/geometry.hpp"

namespace drawing {

class Canvas;

// The horizontal alignment of lines. Natural means Left in a left-to-right user interface, and Right in a right-to-left
// one.
enum class Alignment { Natural, Left, Center, Right };

// The direction of the user interface. The direction of a text depends on its first strongly directional character. A
// text without such a character has the direction of the user interface.
enum class BaseDirection { LeftToRight, RightToLeft };

// How to truncate a text that exceeds the maximum number of lines: after a word, or with an ellipsis.
enum class LineBreak { WordWrap, TruncateTail };

// A piece of text in UTF-8 with one font. Invalid bytes become U+FFFD. A run without a color is drawn in the color that
// is passed to TextLayout::draw.
struct Run {
  std::string text;
  Font font;
  std::optional<Color> color;
  friend bool operator==(const Run&, const Run&) = default;
};

struct Paragraph {
  std::vector<Run> runs;
  Alignment alignment = Alignment::Natural;
  BaseDirection direction = BaseDirection::LeftToRight;
  // The maximum number of lines. There is no limit if the number is zero or less.
  int maxLines = 1;
  LineBreak lineBreak = LineBreak::TruncateTail;
  // A locale such as "ja_JP". It selects the shapes of ideographs, which differ between Chinese, Japanese and Korean.
  std::string language = "en_US";
  friend bool operator==(const Paragraph&, const Paragraph&) = default;
};

// The layout of a paragraph. Lines end at line feeds and between words. A word is broken only if it is longer than a
// line. A single line feed at the end of the text adds no line. The layout reads only the characters that can be
// visible, and at most 20,000. A word of more than 200 characters can also be broken after every 200 characters.
class TextLayout {
 public:
  // `scale` is the number of pixels per point of the screen. Measured sizes are rounded up to whole pixels.
  TextLayout(Paragraph paragraph, double scale);
  ~TextLayout();
  TextLayout(TextLayout&&) noexcept;
  TextLayout& operator=(TextLayout&&) noexcept;

  const Paragraph& paragraph() const;

  // Returns the size of the text if lines have at most this width. A layout with the measured width has the same lines.
  // If the limit is not a positive finite number, the width is unlimited. The size of empty text is zero.
  Size measure(double widthLimit) const;

  // Returns the number of visible lines if lines have at most this width. The number is zero for empty text.
  int lineCount(double widthLimit) const;

  // Returns the distance from the top of the first line to its baseline. The distance is zero for empty text.
  double firstBaseline() const;

  // Draws the text, vertically centered and horizontally aligned in the rectangle. Text that does not fit into the
  // height is truncated, but the first line is always drawn. Draws nothing if the rectangle is empty.
  void draw(Canvas& canvas, const Rectangle& rectangle, const Color& color) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace drawing
