// UIGestureRecognizer's state, and what a recognizer does with the finger's events.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ns_array.hpp"
#include "platform/ui_view.hpp"

namespace uikit {

// A finger that has moved this far, in points, drags; it taps no more.
inline constexpr double dragDistance = 10;

struct GestureAction {
  objc::Weak<NSObject> target;
  SEL selector;
};

struct GestureRecord {
  UIView* view = nullptr;  // borrowed: it holds the recognizer
  std::vector<GestureAction> actions;
  UIGestureRecognizerState state = UIGestureRecognizerState::Possible;
  bool isEnabled = true;
  bool cancelsTouchesInView = true;
  CGPoint down;      // on the screen
  CGPoint location;  // on the screen

  bool isUnderWay() const {
    return state == UIGestureRecognizerState::Began || state == UIGestureRecognizerState::Changed;
  }
};

// The view these are attached to is going away.
void forgetView(NSArray* recognizers);

// The recognizer's next state, with its action. A recognizer that may not begin now fails instead.
void changeState(UIGestureRecognizer* recognizer, UIGestureRecognizerState state);

}  // namespace uikit

template <>
struct objc::StateOf<UIGestureRecognizer> {
  using Type = uikit::GestureRecord;
};
