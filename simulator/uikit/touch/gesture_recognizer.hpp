// The state of a UIGestureRecognizer, and its transitions. Main thread only.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ns_array.hpp"
#include "platform/ui_view.hpp"

namespace uikit {

// The minimum distance, in points, at which a touch is a drag instead of a tap.
inline constexpr double dragDistance = 10;

struct GestureAction {
  objc::Weak<NSObject> target;
  SEL selector;
};

struct GestureRecord {
  UIView* view = nullptr;  // borrowed; the view retains the recognizer
  std::vector<GestureAction> actions;
  UIGestureRecognizerState state = UIGestureRecognizerState::Possible;
  bool isEnabled = true;
  bool cancelsTouchesInView = true;
  CGPoint down;      // where the touch began, in screen coordinates
  CGPoint location;  // where the touch is, in screen coordinates
  // The speed of the touch in points per second, and where and when it was measured last.
  CGPoint velocity;
  CGPoint measuredLocation;
  double measuredTime = 0;

  bool isRecognizing() const {
    return state == UIGestureRecognizerState::Began || state == UIGestureRecognizerState::Changed;
  }
};

// Clears the view of the recognizers. Call this before the view is deallocated.
void detachFromView(NSArray* recognizers);

// Changes the state of the recognizer and sends its actions. If the new state begins a gesture but the recognizer is
// not allowed to begin, the recognizer fails.
void changeState(UIGestureRecognizer* recognizer, UIGestureRecognizerState state);

}  // namespace uikit

template <>
struct objc::StateOf<UIGestureRecognizer> {
  using Type = uikit::GestureRecord;
};
