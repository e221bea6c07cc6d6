// Delivers the mouse and the first finger on a touch screen to the phone, as its finger on the screen and on the
// buttons of the body. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <functional>

#include "platform/core_graphics.hpp"
#include "simulator/plugins/window/window_layout.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace window {

class PointerInput {
 public:
  // Handles the events of the widget, which must exist as long as this object. `screenPoint` converts coordinates of
  // the widget to a point of the phone's screen, which can be outside the screen. A touch begins only on the screen; it
  // continues outside of the screen and of the window. A button of the body is pressed if the touch begins and ends on
  // that button.
  PointerInput(GtkWidget* widget, std::function<CGPoint(double x, double y)> screenPoint);
  PointerInput(const PointerInput&) = delete;
  PointerInput& operator=(const PointerInput&) = delete;

 private:
  enum class Source { None, Mouse, Finger };

  void begin(Source source, double x, double y);
  void proceed(UITouchPhase phase, double x, double y);
  void cancel();
  bool handleButton(const GdkEventButton& event);
  bool handleMotion(const GdkEventMotion& event);
  bool handleTouch(const GdkEventTouch& event);

  std::function<CGPoint(double x, double y)> screenPoint_;
  // The device that controls the finger while it is down. For a touch screen, also the touch.
  Source source_ = Source::None;
  const GdkEventSequence* sequence_ = nullptr;
  CGPoint last_ = {};
  // The button on which the current touch began.
  BodyButton button_ = BodyButton::None;
};

}  // namespace window
