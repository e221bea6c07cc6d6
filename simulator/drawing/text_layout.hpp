// Text laid out in lines: measured, and drawn. Used on one thread at a time.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/drawing/font.hpp"
#include "simulator/drawing/geometry.hpp"

namespace drawing {

class Canvas;

// Natural is the leading side of the user interface's direction.
enum class Alignment { Natural, Left, Center, Right };

// The user interface's direction. A text's own direction is decided by its first strong character, and by this where
// it has none.
enum class BaseDirection { LeftToRight, RightToLeft };

// What happens to text beyond the last line that is allowed: it is left out at a word, or an ellipsis tells of it.
enum class LineBreak { WordWrap, TruncateTail };

// Text in UTF-8 in one font; bytes that are none become U+FFFD. Without a color it takes the one given when drawing.
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
  // 0 or less is unlimited.
  int maxLines = 1;
  LineBreak lineBreak = LineBreak::TruncateTail;
  // A locale such as "ja_JP": it chooses among the shapes of Chinese, Japanese and Korean characters.
  std::string language = "en_US";
  friend bool operator==(const Paragraph&, const Paragraph&) = default;
};

// Lines break at line feeds, at words, and inside a word only where it is longer than a line. One line feed at the very
// end adds no line. However long the text, only what can be visible is looked at; without a limit of lines or of width
// that is the first 20,000 characters. A word of more than 200 characters may also break after each 200.
class TextLayout {
 public:
  // Scale is the screen's pixels per point, the grid to which sizes are rounded up.
  TextLayout(Paragraph paragraph, double scale);
  ~TextLayout();
  TextLayout(TextLayout&&) noexcept;
  TextLayout& operator=(TextLayout&&) noexcept;

  const Paragraph& paragraph() const;

  // The size in points that the text takes at this width; laid out again at the measured width it has the same lines.
  // A width that is not a positive finite number is no limit. Empty text measures 0 by 0.
  Size measure(double widthLimit) const;

  // The lines that are shown at this width, at most the allowed number; 0 for empty text.
  int lineCount(double widthLimit) const;

  // From the top of the first line to its baseline, in points; 0 for empty text.
  double firstBaseline() const;

  // Draws inside the rectangle, in the middle of its height as a label does, aligned in its width. Lines that the
  // height has no room for are left out as those beyond the allowed number, but never the first.
  void draw(Canvas& canvas, const Rectangle& rectangle, const Color& color) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace drawing
