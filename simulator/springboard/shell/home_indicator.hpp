// The home indicator: the bar at the lower edge of devices without a home button. An upward swipe that begins on it
// closes the page of an application or unlocks the phone. Main thread.
#pragma once

#include <functional>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"

namespace springboard {

// The color of the indicator: white, or the color of texts in the current appearance.
enum class IndicatorColor { White, OfTexts };

}  // namespace springboard

struct HomeIndicatorState {
  springboard::IndicatorColor color = springboard::IndicatorColor::White;
  std::function<void()> swipedUp;
};

class SBHomeIndicatorView : public objc::Interface<"SBHomeIndicatorView", UIView> {};
template <>
struct objc::StateOf<SBHomeIndicatorView> {
  using Type = HomeIndicatorState;
};

namespace springboard {

// Adds the indicator to a view that covers the screen. The indicator calls `swipedUp` after an upward swipe. If
// `swipedUp` is null, the indicator accepts no touches. Does nothing on a device with a home button.
void addHomeIndicator(UIView* view, IndicatorColor color, std::function<void()> swipedUp);

void defineHomeIndicator();

}  // namespace springboard
