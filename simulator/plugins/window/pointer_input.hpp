// Delivers the mouse and the first finger on a touch screen to the phone. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <functional>

#include "platform/core_graphics.hpp"
#include "simulator/plugins/phone_display/finger_input.hpp"

namespace window {

class PointerInput {
 public:
  // Handles the events of the widget, which must outlive this object. `screenPoint` converts coordinates of the widget
  // to a point of the phone's screen, which can be outside the screen.
  PointerInput(GtkWidget* widget, std::function<CGPoint(double x, double y)> screenPoint);
  PointerInput(const PointerInput&) = delete;
  PointerInput& operator=(const PointerInput&) = delete;

  // Cancels the touch in progress, if there is one.
  void cancel() { finger_.cancel(); }

 private:
  bool handleButton(const GdkEventButton& event);
  bool handleMotion(const GdkEventMotion& event);
  bool handleTouch(const GdkEventTouch& event);

  std::function<CGPoint(double x, double y)> screenPoint_;
  phone_display::FingerInput finger_;
};

}  // namespace window
