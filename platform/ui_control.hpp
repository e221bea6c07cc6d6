// UIControl: a view that sends action messages to its targets when the user operates it.
#pragma once

#include "platform/ui_view.hpp"

enum class UIControlState : NSUInteger { Normal = 0 };
enum class UIControlEvents : NSUInteger {
  TouchUpInside = 1 << 6,
  EditingDidBegin = 1 << 16,
  EditingDidEnd = 1 << 18,
  EditingDidEndOnExit = 1 << 19,
};
enum class UIControlContentVerticalAlignment : NSInteger { Center = 0 };

class UIControl : public objc::Interface<"UIControl", UIView> {
 public:
  // Does not retain the target. If the target is nil, the control sends the action up the responder chain.
  void addTarget(NSObject* target, SEL action, UIControlEvents events) {
    objc::send<void, "addTarget:action:forControlEvents:">(this, target, action, events);
  }
  void setEnabled(bool enabled) { objc::send<void, "setEnabled:">(this, enabled); }
  void setContentVerticalAlignment(UIControlContentVerticalAlignment alignment) {
    objc::send<void, "setContentVerticalAlignment:">(this, alignment);
  }
};
