// UILabel: text that wraps, truncates and measures itself.
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
  // 0 stands for as many as the text needs.
  void setNumberOfLines(NSInteger lines) { objc::send<void, "setNumberOfLines:">(this, lines); }
  // The lines the text takes at the label's width, within its limit; 0 for no text.
  NSUInteger measuredNumberOfLines() const { return objc::send<NSUInteger, "_measuredNumberOfLines">(this); }
};
