// UIGestureRecognizer's state and its transitions. Main thread only.
#pragma once

#include <vector>

#include "objc/class_definition.hpp"
#include "platform/ns_array.hpp"
#include "platform/ui_view.hpp"

namespace uikit {

// The distance, in points, at which a touch becomes a drag and can no longer be a tap.
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

  bool isRecognizing() const {
    return state == UIGestureRecognizerState::Began || state == UIGestureRecognizerState::Changed;
  }
};

// Clears the view of the recognizers, because it is about to be deallocated.
void detachFromView(NSArray* recognizers);

// Changes the state of the recognizer and sends its actions. A recognizer that is not allowed to begin fails instead.
void changeState(UIGestureRecognizer* recognizer, UIGestureRecognizerState state);

}  // namespace uikit

template <>
struct objc::StateOf<UIGestureRecognizer> {
  using Type = uikit::GestureRecord;
};
