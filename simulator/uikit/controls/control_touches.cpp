// The touch tracking of controls.
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace uikit {

namespace {

// The maximum distance, in points, from the bounds of a control at which a touch counts as inside the control.
constexpr CGFloat touchMargin = 70;

enum class TouchPosition { Inside, Outside };

TouchPosition positionOf(UIControl* self, NSObject* touches) {
  const CGPoint point = anyTouch(touches)->locationInView(self);
  const CGRect bounds = self->bounds();
  const double right = point.x - bounds.origin.x - bounds.size.width;
  const double bottom = point.y - bounds.origin.y - bounds.size.height;
  const bool inside = bounds.origin.x - point.x <= touchMargin && bounds.origin.y - point.y <= touchMargin &&
                      right <= touchMargin && bottom <= touchMargin;
  return inside ? TouchPosition::Inside : TouchPosition::Outside;
}

void setHighlighted(UIControl* self, bool highlighted) { objc::send<void, "setHighlighted:">(self, highlighted); }

void touchesBegan(UIControl* self, NSObject*, NSObject*) {
  ControlState& state = objc::state(self);
  if (!state.enabled) return;
  state.tracking = true;
  state.touchInside = true;
  setHighlighted(self, true);
  sendActions(self, touchDown);
}

void changePosition(UIControl* self, TouchPosition position) {
  const bool inside = position == TouchPosition::Inside;
  objc::state(self).touchInside = inside;
  setHighlighted(self, inside);
  sendActions(self, inside ? touchDragEnter : touchDragExit);
}

void touchesMoved(UIControl* self, NSObject* touches, NSObject*) {
  const ControlState& state = objc::state(self);
  if (!state.tracking) return;
  const TouchPosition position = positionOf(self, touches);
  if ((position == TouchPosition::Inside) != state.touchInside) changePosition(self, position);
  sendActions(self, position == TouchPosition::Inside ? touchDragInside : touchDragOutside);
}

// Resets the state before sending the actions, because they can change or remove the control.
void endTracking(UIControl* self, UIControlEvents events) {
  ControlState& state = objc::state(self);
  if (!state.tracking) return;
  state.tracking = false;
  state.touchInside = false;
  setHighlighted(self, false);
  sendActions(self, events);
}

void touchesEnded(UIControl* self, NSObject* touches, NSObject*) {
  endTracking(self,
              positionOf(self, touches) == TouchPosition::Inside ? UIControlEvents::TouchUpInside : touchUpOutside);
}

void touchesCancelled(UIControl* self, NSObject*, NSObject*) { endTracking(self, touchCancel); }

bool isTracking(UIControl* self) { return objc::state(self).tracking; }
bool isTouchInside(UIControl* self) { return objc::state(self).touchInside; }

}  // namespace

std::span<const objc::MethodEntry> controlTouchMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"touchesBegan:withEvent:", &touchesBegan>(),
      objc::method<"touchesMoved:withEvent:", &touchesMoved>(),
      objc::method<"touchesEnded:withEvent:", &touchesEnded>(),
      objc::method<"touchesCancelled:withEvent:", &touchesCancelled>(),
      objc::method<"isTracking", &isTracking>(),
      objc::method<"isTouchInside", &isTouchInside>(),
  };
  return methods;
}

}  // namespace uikit
