// UIButton: a control with a title.
#pragma once

#include "platform/ui_control.hpp"
#include "platform/ui_label.hpp"

class UIButton : public objc::Interface<"UIButton", UIControl> {
 public:
  UILabel* titleLabel() const { return objc::send<UILabel*, "titleLabel">(this); }
  // nil removes the title of the state.
  void setTitle(NSString* title, UIControlState state) { objc::send<void, "setTitle:forState:">(this, title, state); }
  // nil restores the default color.
  void setTitleColor(UIColor* color, UIControlState state) {
    objc::send<void, "setTitleColor:forState:">(this, color, state);
  }
};
