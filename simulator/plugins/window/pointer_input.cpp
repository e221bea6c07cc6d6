#include "simulator/plugins/window/pointer_input.hpp"

#include <utility>

namespace window {

PointerInput::PointerInput(GtkWidget* widget, std::function<CGPoint(double x, double y)> screenPoint)
    : screenPoint_(std::move(screenPoint)) {
  gtk_widget_add_events(widget,
                        GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK | GDK_BUTTON1_MOTION_MASK | GDK_TOUCH_MASK);
  const auto button = +[](GtkWidget*, GdkEventButton* event, PointerInput* self) -> gboolean {
    return self->handleButton(*event) ? TRUE : FALSE;
  };
  const auto motion = +[](GtkWidget*, GdkEventMotion* event, PointerInput* self) -> gboolean {
    return self->handleMotion(*event) ? TRUE : FALSE;
  };
  const auto touch = +[](GtkWidget*, GdkEventTouch* event, PointerInput* self) -> gboolean {
    return self->handleTouch(*event) ? TRUE : FALSE;
  };
  const auto cancel = +[](GtkWidget*, GdkEvent*, PointerInput* self) -> gboolean {
    self->finger_.cancel();
    return FALSE;
  };
  g_signal_connect(widget, "button-press-event", G_CALLBACK(button), this);
  g_signal_connect(widget, "button-release-event", G_CALLBACK(button), this);
  g_signal_connect(widget, "motion-notify-event", G_CALLBACK(motion), this);
  g_signal_connect(widget, "touch-event", G_CALLBACK(touch), this);
  g_signal_connect(widget, "grab-broken-event", G_CALLBACK(cancel), this);
  g_signal_connect(widget, "unmap-event", G_CALLBACK(cancel), this);
}

// This object identifies the mouse.
bool PointerInput::handleButton(const GdkEventButton& event) {
  if (event.button != GDK_BUTTON_PRIMARY) return false;
  if (event.type == GDK_BUTTON_PRESS) finger_.begin(this, screenPoint_(event.x, event.y));
  if (event.type == GDK_BUTTON_RELEASE) finger_.proceed(this, UITouchPhase::Ended, screenPoint_(event.x, event.y));
  return true;
}

bool PointerInput::handleMotion(const GdkEventMotion& event) {
  finger_.proceed(this, UITouchPhase::Moved, screenPoint_(event.x, event.y));
  return true;
}

// Without a handler for touch events, GTK would convert the events of the first finger to mouse events.
bool PointerInput::handleTouch(const GdkEventTouch& event) {
  const CGPoint point = screenPoint_(event.x, event.y);
  switch (event.type) {
    case GDK_TOUCH_BEGIN:
      finger_.begin(event.sequence, point);
      break;
    case GDK_TOUCH_UPDATE:
      finger_.proceed(event.sequence, UITouchPhase::Moved, point);
      break;
    case GDK_TOUCH_END:
      finger_.proceed(event.sequence, UITouchPhase::Ended, point);
      break;
    default:
      finger_.cancel(event.sequence);
  }
  return true;
}

}  // namespace window
