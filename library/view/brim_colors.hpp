// BrimColors: the colors of a banner. The color mode selects a palette. A custom color can replace each color of the
// palette. Main thread.
#pragma once

#include "platform/ui_color.hpp"

// The color modes. The numbers are those of the setting containerColor, except that 0 is not a mode. Any other number
// selects the black palette.
inline constexpr NSInteger darkMode = 1;
inline constexpr NSInteger lightMode = 2;
inline constexpr NSInteger blackMode = 3;

class BrimColors : public objc::Interface<"BrimColors", NSObject> {
 public:
  static objc::Ref<BrimColors> withMode(NSInteger mode) {
    return objc::adopt(objc::send<BrimColors*, "initWithMode:">(objc::allocate<BrimColors>(), mode));
  }
  NSInteger mode() const { return objc::send<NSInteger, "mode">(this); }
  bool useCustomColors() const { return objc::send<bool, "useCustomColors">(this); }

  // Each of these functions returns the custom color if it is set and useCustomColors is true. Otherwise, it returns
  // the color of the mode's palette.
  UIColor* containerBackgroundColor() const { return objc::send<UIColor*, "containerBackgroundColor">(this); }
  UIColor* containerGrabberColor() const { return objc::send<UIColor*, "containerGrabberColor">(this); }
  UIColor* containerReplyColor() const { return objc::send<UIColor*, "containerReplyColor">(this); }
  UIColor* containerTextColor() const { return objc::send<UIColor*, "containerTextColor">(this); }
  UIColor* containerButtonColor() const { return objc::send<UIColor*, "containerButtonColor">(this); }
  UIColor* containerDeleteColor() const { return objc::send<UIColor*, "containerDeleteColor">(this); }
};

// Call once. Returns false if the class cannot be defined.
bool registerBrimColors();
