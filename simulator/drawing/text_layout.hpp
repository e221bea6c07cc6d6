// Lays out text in lines, measures it and draws it. Lengths are in points. Used by one thread at a time.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/drawing/font.hpp"
#include "simulator/drawing/geometry.hpp"

namespace drawing {

class Canvas;

// Natural is left for a user interface from left to right, and right for one from right to left.
enum class Alignment { Natural, Left, Center, Right };

// The direction of the user interface. The direction of a text depends on its first strong character; a text without
// one has the direction of the user interface.
enum class BaseDirection { LeftToRight, RightToLeft };

// How text that exceeds the maximum number of lines is truncated: after a word, or with an ellipsis.
enum class LineBreak { WordWrap, TruncateTail };

// Text in UTF-8 with one font. Invalid bytes become U+FFFD. A run without a color is drawn in the color that is passed
// to TextLayout::draw.
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
  // Zero or less means no limit.
  int maxLines = 1;
  LineBreak lineBreak = LineBreak::TruncateTail;
  // A locale such as "ja_JP". It selects the shapes of ideographs, which differ between Chinese, Japanese and Korean.
  std::string language = "en_US";
  friend bool operator==(const Paragraph&, const Paragraph&) = default;
};

// Lines end at line feeds and between words. A word is broken only if it is longer than a line. One line feed at the
// end of the text adds no line. Only as many characters as can be visible are read, and at most 20,000. A word of more
// than 200 characters can also be broken after every 200 characters.
class TextLayout {
 public:
  // Scale is the screen's number of pixels per point. Sizes are rounded up to whole pixels.
  TextLayout(Paragraph paragraph, double scale);
  ~TextLayout();
  TextLayout(TextLayout&&) noexcept;
  TextLayout& operator=(TextLayout&&) noexcept;

  const Paragraph& paragraph() const;

  // The size of the text if lines have at most this width. A layout with the measured width has the same lines. A width
  // that is not a positive finite number means no limit. The size of empty text is zero.
  Size measure(double widthLimit) const;

  // The number of visible lines if lines have at most this width. Zero for empty text.
  int lineCount(double widthLimit) const;

  // The distance from the top of the first line to its baseline. Zero for empty text.
  double firstBaseline() const;

  // Draws the text, centered vertically and aligned horizontally in the rectangle. Lines that do not fit into the
  // height are truncated, but the first line is always drawn. An empty rectangle draws nothing.
  void draw(Canvas& canvas, const Rectangle& rectangle, const Color& color) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace drawing
