// UITouch's state. Locations are in screen coordinates, the timestamp is in seconds.
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
