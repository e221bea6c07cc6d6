// UITextField: a control for editing one line of text.
#pragma once

#include "platform/ui_control.hpp"
#include "platform/ui_font.hpp"

enum class UITextBorderStyle : NSInteger { None = 0 };
enum class UIKeyboardType : NSInteger { Default = 0 };
enum class UIReturnKeyType : NSInteger { Send = 7 };

class UITextField : public objc::Interface<"UITextField", UIControl> {
 public:
  // The text is never nil. Setting nil clears the text.
  NSString* text() const { return objc::send<NSString*, "text">(this); }
  void setText(NSString* text) { objc::send<void, "setText:">(this, text); }
  void setTextColor(UIColor* color) { objc::send<void, "setTextColor:">(this, color); }
  void setFont(UIFont* font) { objc::send<void, "setFont:">(this, font); }
  void setBorderStyle(UITextBorderStyle style) { objc::send<void, "setBorderStyle:">(this, style); }
  void setKeyboardType(UIKeyboardType type) { objc::send<void, "setKeyboardType:">(this, type); }
  void setReturnKeyType(UIReturnKeyType type) { objc::send<void, "setReturnKeyType:">(this, type); }
};
