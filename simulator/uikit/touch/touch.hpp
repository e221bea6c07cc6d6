// UITouch and UIEvent: one finger, from going down to leaving the screen; and the way touches enter.
#pragma once

#include "platform/ui_view.hpp"
#include "platform/ui_window.hpp"

enum class UITouchPhase : NSInteger { Began, Moved, Stationary, Ended, Cancelled };

// Responders get it as the one member of the set in touchesBegan:withEvent:, touchesMoved:withEvent:,
// touchesEnded:withEvent: and touchesCancelled:withEvent:.
class UITouch : public objc::Interface<"UITouch", NSObject> {
 public:
  UITouchPhase phase() const { return objc::send<UITouchPhase, "phase">(this); }
  // The view the finger went down on; nil once it has left its window.
  UIView* view() const { return objc::send<UIView*, "view">(this); }
  // nil stands for the window.
  CGPoint locationInView(UIView* view) const { return objc::send<CGPoint, "locationInView:">(this, view); }
  // Seconds, by the clock in use.
  double timestamp() const { return objc::send<double, "timestamp">(this); }
};

class UIEvent : public objc::Interface<"UIEvent", NSObject> {};

namespace uikit {

// What a finger does at a point of the screen. There is one finger: Began ends one still down with a cancellation;
// the other phases without one do nothing. Views are asked from the top window down.
void deliverTouch(UITouchPhase phase, CGPoint screenPoint, double timestamp);
bool isFingerDown();

// The touch of such a set.
UITouch* anyTouch(NSObject* touches);

}  // namespace uikit
