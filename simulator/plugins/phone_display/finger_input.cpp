#include "simulator/plugins/phone_display/finger_input.hpp"

#include <algorithm>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/finger.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "simulator/springboard/shell/springboard_application.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace phone_display {

namespace {

bool isOnScreen(CGPoint point) {
  const CGSize screen = uikit::environment().device.screen;
  return point.x >= 0 && point.y >= 0 && point.x < screen.width && point.y < screen.height;
}

// Handles the touch on the main queue, because a touch can run the run loop, which a GLib callback must not do.
void deliver(UITouchPhase phase, CGPoint point) {
  foundation::onMainThread([phase, point] { runner::touch(phase, point); });
}

BodyButton bodyButtonAt(CGPoint point) { return buttonAt(uikit::environment().device, point); }

struct PressRow {
  BodyButton button;
  NSInteger type;
};
constexpr PressRow presses[] = {
    {BodyButton::Home, springboard::homeButtonPress},
    {BodyButton::VolumeUp, springboard::volumeUpPress},
    {BodyButton::VolumeDown, springboard::volumeDownPress},
};

void press(BodyButton button) {
  if (button == BodyButton::Side) return SBLockScreenManager::sharedInstance()->lock();
  const objc::AutoreleasePool pool;
  const NSInteger type = std::ranges::find(presses, button, &PressRow::button)->type;
  springboard::pressButton(type, 1);
  springboard::pressButton(type, 0);
}

}  // namespace

void pressBodyButton(BodyButton button) {
  foundation::onMainThread([button] { press(button); });
}

void FingerInput::begin(Source source, CGPoint point) {
  if (source_ != nullptr) return;
  button_ = isOnScreen(point) ? BodyButton::None : bodyButtonAt(point);
  if (!isOnScreen(point) && button_ == BodyButton::None) return;
  source_ = source;
  last_ = point;
  if (button_ == BodyButton::None) deliver(UITouchPhase::Began, point);
}

void FingerInput::proceed(Source source, UITouchPhase phase, CGPoint point) {
  if (source_ != source) return;
  last_ = point;
  if (phase == UITouchPhase::Ended) source_ = nullptr;
  if (button_ == BodyButton::None) return deliver(phase, point);
  if (phase == UITouchPhase::Ended && bodyButtonAt(point) == button_) pressBodyButton(button_);
}

void FingerInput::cancel() {
  const Source source = std::exchange(source_, nullptr);
  if (source != nullptr && button_ == BodyButton::None) deliver(UITouchPhase::Cancelled, last_);
}

void FingerInput::cancel(Source source) {
  if (source_ == source) cancel();
}

}  // namespace phone_display
