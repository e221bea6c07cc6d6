// The state of a UITouch. Locations are in screen coordinates. The timestamp is in seconds. Main thread only.
#pragma once

#include "objc/class_definition.hpp"
#include "simulator/uikit/touch/touch.hpp"

struct TouchState {
  UITouchPhase phase = UITouchPhase::Began;
  CGPoint location;
  CGPoint previousLocation;
  double timestamp = 0;
  objc::Ref<UIView> view;
};
template <>
struct objc::StateOf<UITouch> {
  using Type = TouchState;
};
