// UILabel's state, and text as any view lays it out.
#pragma once

#include <optional>

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "simulator/drawing/text_layout.hpp"
#include "simulator/uikit/text/styled_text.hpp"

// The platform's numbers.
enum class NSLineBreakMode : NSInteger {
  WordWrapping,
  CharWrapping,
  Clipping,
  TruncatingHead,
  TruncatingTail,
  TruncatingMiddle,
};

struct LabelState {
  uikit::StyledText text;
  objc::Ref<UIFont> font;
  objc::Ref<UIColor> textColor;  // nil: that of the appearance
  NSTextAlignment alignment = NSTextAlignment::Natural;
  NSLineBreakMode lineBreakMode = NSLineBreakMode::TruncatingTail;
  NSInteger numberOfLines = 1;
  CGFloat preferredMaxLayoutWidth = 0;  // chosen by the label's owner; 0 for the one that layout finds
  CGFloat layoutWidth = 0;
  std::optional<drawing::TextLayout> layout;  // made when needed
};
template <>
struct objc::StateOf<UILabel> {
  using Type = LabelState;
};

namespace uikit {

drawing::Alignment drawingAlignment(NSTextAlignment alignment);
// Of text in the view: the direction its user interface is written in.
drawing::BaseDirection baseDirection(const UIView* view);

// The label's text, laid out as it is now.
drawing::TextLayout& textLayout(const UILabel* label);

void defineLabel();

}  // namespace uikit
