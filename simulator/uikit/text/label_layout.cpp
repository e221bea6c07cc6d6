// Converts a label's text to a text layout of the drawing layer.
#include <algorithm>

#include "simulator/uikit/text/label.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

drawing::Alignment drawingAlignment(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignment::Left:
      return drawing::Alignment::Left;
    case NSTextAlignment::Center:
      return drawing::Alignment::Center;
    case NSTextAlignment::Right:
      return drawing::Alignment::Right;
    case NSTextAlignment::Justified:
    case NSTextAlignment::Natural:
      break;
  }
  return drawing::Alignment::Natural;
}

drawing::BaseDirection baseDirection(const UIView* view) {
  return effectiveDirection(view) == LayoutDirection::RightToLeft ? drawing::BaseDirection::RightToLeft
                                                                  : drawing::BaseDirection::LeftToRight;
}

namespace {

bool truncates(NSLineBreakMode mode) {
  return mode != NSLineBreakMode::WordWrapping && mode != NSLineBreakMode::CharWrapping &&
         mode != NSLineBreakMode::Clipping;
}

drawing::Paragraph paragraphOf(const LabelState& state, drawing::BaseDirection direction) {
  constexpr NSInteger maxLines = 10'000;
  drawing::Paragraph paragraph;
  paragraph.runs = state.text.runs(fontOf(state.font), maxVisibleUnits);
  paragraph.alignment = drawingAlignment(state.alignment);
  paragraph.direction = direction;
  paragraph.maxLines = static_cast<int>(std::clamp(state.numberOfLines, NSInteger{0}, maxLines));
  paragraph.lineBreak =
      truncates(state.lineBreakMode) ? drawing::LineBreak::TruncateTail : drawing::LineBreak::WordWrap;
  paragraph.language = environment().locale;
  return paragraph;
}

}  // namespace

drawing::TextLayout& textLayout(const UILabel* label) {
  LabelState& state = objc::state(label);
  const drawing::BaseDirection direction = baseDirection(label);
  if (!state.layout || state.layout->paragraph().direction != direction)
    state.layout.emplace(paragraphOf(state, direction), environment().device.scale);
  return *state.layout;
}

}  // namespace uikit
