// Converts input from pointing devices to touches on the phone's screen and on the buttons of its body. Main thread.
#pragma once

#include "platform/core_graphics.hpp"
#include "simulator/plugins/phone_display/window_layout.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace phone_display {

// The first device that is pressed controls the finger until it is released. Until then, other devices are ignored. A
// touch can begin only on the screen, but can continue outside of it. A button of the body is pressed if the touch
// begins and ends on that button. Points are in coordinates of the phone's screen and can be outside the screen.
class FingerInput {
 public:
  // Identifies a device or one finger on a touch screen. Not null. The pointer is compared but never dereferenced.
  using Source = const void*;

  void begin(Source source, CGPoint point);
  // The phase is Moved or Ended.
  void proceed(Source source, UITouchPhase phase, CGPoint point);
  // Cancels the touch, regardless of its source.
  void cancel();
  void cancel(Source source);

 private:
  Source source_ = nullptr;  // null while no device is pressed
  CGPoint last_ = {};
  // The button on which the current touch began.
  BodyButton button_ = BodyButton::None;
};

// Presses and releases a button of the body.
void pressBodyButton(BodyButton button);

}  // namespace phone_display
