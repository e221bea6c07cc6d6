// UIVisualEffectView: a view that blurs the content behind it.
#pragma once

#include "platform/ui_view.hpp"

enum class UIBlurEffectStyle : NSInteger { Light = 1, Dark = 2, Regular = 4 };

class UIBlurEffect : public objc::Interface<"UIBlurEffect", NSObject> {
 public:
  static UIBlurEffect* withStyle(UIBlurEffectStyle style) {
    return objc::send<UIBlurEffect*, "effectWithStyle:">(classObject(), style);
  }
};

class UIVisualEffectView : public objc::Interface<"UIVisualEffectView", UIView> {
 public:
  static objc::Ref<UIVisualEffectView> withEffect(UIBlurEffect* effect) {
    return objc::adopt(
        objc::send<UIVisualEffectView*, "initWithEffect:">(objc::allocate<UIVisualEffectView>(), effect));
  }
};
