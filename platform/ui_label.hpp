// UILabel: a view that shows text. It wraps and truncates the text and computes its own size. The text can be nil.
#pragma once

#include "platform/ns_attributed_string.hpp"
#include "platform/ui_font.hpp"
#include "platform/ui_view.hpp"

enum class NSTextAlignment : NSInteger { Left, Center, Right, Justified, Natural };

class UILabel : public objc::Interface<"UILabel", UIView> {
 public:
  NSString* text() const { return objc::send<NSString*, "text">(this); }
  void setText(NSString* text) { objc::send<void, "setText:">(this, text); }
  void setAttributedText(NSAttributedString* text) { objc::send<void, "setAttributedText:">(this, text); }
  UIFont* font() const { return objc::send<UIFont*, "font">(this); }
  void setFont(UIFont* font) { objc::send<void, "setFont:">(this, font); }
  UIColor* textColor() const { return objc::send<UIColor*, "textColor">(this); }
  void setTextColor(UIColor* color) { objc::send<void, "setTextColor:">(this, color); }
  void setTextAlignment(NSTextAlignment alignment) { objc::send<void, "setTextAlignment:">(this, alignment); }
  // The maximum number of lines; 0 means no limit.
  void setNumberOfLines(NSInteger lines) { objc::send<void, "setNumberOfLines:">(this, lines); }
  // The number of lines of the text at the label's width, at most the maximum number of lines; 0 if there is no text.
  NSUInteger measuredNumberOfLines() const { return objc::sendIfAvailable<NSUInteger, "_measuredNumberOfLines">(this); }
};
