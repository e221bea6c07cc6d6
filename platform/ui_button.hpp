// UIButton: a control with a title.
#pragma once

#include "platform/ui_control.hpp"
#include "platform/ui_label.hpp"

class UIButton : public objc::Interface<"UIButton", UIControl> {
 public:
  UILabel* titleLabel() const { return objc::send<UILabel*, "titleLabel">(this); }
  // Sets the title for a state; nil removes the title.
  void setTitle(NSString* title, UIControlState state) { objc::send<void, "setTitle:forState:">(this, title, state); }
  // Sets the title color for a state; nil restores the default color.
  void setTitleColor(UIColor* color, UIControlState state) {
    objc::send<void, "setTitleColor:forState:">(this, color, state);
  }
};
