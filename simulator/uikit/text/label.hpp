// The state of a UILabel, and the conversions that all views with text use. Main thread only.
#pragma once

#include <optional>

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "simulator/drawing/text_layout.hpp"
#include "simulator/uikit/text/styled_text.hpp"

// The values are those of the platform.
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
  objc::Ref<UIColor> textColor;  // if nil, the text has the label color of the appearance
  NSTextAlignment alignment = NSTextAlignment::Natural;
  NSLineBreakMode lineBreakMode = NSLineBreakMode::TruncatingTail;
  NSInteger numberOfLines = 1;
  CGFloat preferredMaxLayoutWidth = 0;        // set by the owner of the label; if 0, layoutWidth is used
  CGFloat layoutWidth = 0;                    // the width that the constraints have determined for the label
  std::optional<drawing::TextLayout> layout;  // created at first use
};
template <>
struct objc::StateOf<UILabel> {
  using Type = LabelState;
};

namespace uikit {

drawing::Alignment drawingAlignment(NSTextAlignment alignment);
// Returns the base direction of text in the view, which is the direction of the user interface.
drawing::BaseDirection baseDirection(const UIView* view);

// Returns the layout of the label's current text.
drawing::TextLayout& textLayout(const UILabel* label);

void defineLabel();

}  // namespace uikit
