// UITouch and UIEvent, and the function that delivers touches to views. Points are in screen coordinates unless stated
// otherwise. Main thread only.
#pragma once

#include "platform/ui_view.hpp"
#include "platform/ui_window.hpp"

enum class UITouchPhase : NSInteger { Began, Moved, Stationary, Ended, Cancelled };

// A finger on the screen. Responders receive it as the only element of the set in touchesBegan:withEvent:,
// touchesMoved:withEvent:, touchesEnded:withEvent: and touchesCancelled:withEvent:.
class UITouch : public objc::Interface<"UITouch", NSObject> {
 public:
  UITouchPhase phase() const { return objc::send<UITouchPhase, "phase">(this); }
  // The view in which the touch began; nil if there was no view at its location.
  UIView* view() const { return objc::send<UIView*, "view">(this); }
  // Returns the location in the coordinates of the view. If the view is nil, returns it in the coordinates of the
  // window.
  CGPoint locationInView(UIView* view) const { return objc::send<CGPoint, "locationInView:">(this, view); }
  // The time of the touch in seconds, on the simulator's current clock.
  double timestamp() const { return objc::send<double, "timestamp">(this); }
};

class UIEvent : public objc::Interface<"UIEvent", NSObject> {};

namespace uikit {

// Delivers a touch at a point of the screen to the frontmost view at that point and to its recognizers. There is only
// one finger. Began cancels a touch that is still in progress. The other phases do nothing if no touch is in progress.
// The timestamp is in seconds.
void deliverTouch(UITouchPhase phase, CGPoint screenPoint, double timestamp);
bool isFingerDown();

// Returns the touch from the set that a responder receives.
UITouch* anyTouch(NSObject* touches);

}  // namespace uikit
