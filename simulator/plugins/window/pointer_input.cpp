#include "simulator/plugins/window/pointer_input.hpp"

#include <utility>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/finger.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "simulator/springboard/shell/springboard_application.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace window {

namespace {

bool isOnScreen(CGPoint point) {
  const CGSize screen = uikit::environment().device.screen;
  return point.x >= 0 && point.y >= 0 && point.x < screen.width && point.y < screen.height;
}

// The phone handles the touch in its main queue, because it can run the run loop, which a callback of GTK must not do.
void deliver(UITouchPhase phase, CGPoint point) {
  foundation::onMainThread([phase, point] { runner::touch(phase, point); });
}

void press(BodyButton button) {
  if (button == BodyButton::Side) return SBLockScreenManager::sharedInstance()->lock();
  springboard::pressButton(springboard::homeButtonPress, 1);
  springboard::pressButton(springboard::homeButtonPress, 0);
}

BodyButton bodyButtonAt(CGPoint point) { return buttonAt(uikit::environment().device, point); }

}  // namespace

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
    self->cancel();
    return FALSE;
  };
  g_signal_connect(widget, "button-press-event", G_CALLBACK(button), this);
  g_signal_connect(widget, "button-release-event", G_CALLBACK(button), this);
  g_signal_connect(widget, "motion-notify-event", G_CALLBACK(motion), this);
  g_signal_connect(widget, "touch-event", G_CALLBACK(touch), this);
  g_signal_connect(widget, "grab-broken-event", G_CALLBACK(cancel), this);
  g_signal_connect(widget, "unmap-event", G_CALLBACK(cancel), this);
}

void PointerInput::begin(Source source, double x, double y) {
  const CGPoint point = screenPoint_(x, y);
  if (source_ != Source::None) return;
  button_ = isOnScreen(point) ? BodyButton::None : bodyButtonAt(point);
  if (!isOnScreen(point) && button_ == BodyButton::None) return;
  source_ = source;
  last_ = point;
  if (button_ == BodyButton::None) deliver(UITouchPhase::Began, point);
}

void PointerInput::proceed(UITouchPhase phase, double x, double y) {
  last_ = screenPoint_(x, y);
  if (phase != UITouchPhase::Moved) source_ = Source::None;
  if (button_ == BodyButton::None) return deliver(phase, last_);
  if (phase == UITouchPhase::Ended && bodyButtonAt(last_) == button_)
    foundation::onMainThread([button = button_] { press(button); });
}

void PointerInput::cancel() {
  const Source source = std::exchange(source_, Source::None);
  if (source != Source::None && button_ == BodyButton::None) deliver(UITouchPhase::Cancelled, last_);
}

bool PointerInput::handleButton(const GdkEventButton& event) {
  if (event.button != GDK_BUTTON_PRIMARY) return false;
  if (event.type == GDK_BUTTON_PRESS) begin(Source::Mouse, event.x, event.y);
  if (event.type == GDK_BUTTON_RELEASE && source_ == Source::Mouse) proceed(UITouchPhase::Ended, event.x, event.y);
  return true;
}

bool PointerInput::handleMotion(const GdkEventMotion& event) {
  if (source_ == Source::Mouse) proceed(UITouchPhase::Moved, event.x, event.y);
  return true;
}

// Without a handler of this event, GTK would convert the events of the first finger to those of a mouse.
bool PointerInput::handleTouch(const GdkEventTouch& event) {
  if (event.type == GDK_TOUCH_BEGIN) {
    if (source_ != Source::None) return true;
    begin(Source::Finger, event.x, event.y);
    sequence_ = event.sequence;
    return true;
  }
  if (source_ != Source::Finger || sequence_ != event.sequence) return true;
  if (event.type == GDK_TOUCH_CANCEL) {
    cancel();
  } else {
    proceed(event.type == GDK_TOUCH_END ? UITouchPhase::Ended : UITouchPhase::Moved, event.x, event.y);
  }
  return true;
}

}  // namespace window
