// How a control follows a finger.
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace uikit {

namespace {

// A finger may leave the control by so many points and still be on it.
constexpr CGFloat touchMargin = 70;

enum class Place { Inside, Outside };

Place placeOf(UIControl* self, NSObject* touches) {
  const CGPoint point = anyTouch(touches)->locationInView(self);
  const CGRect bounds = self->bounds();
  const double right = point.x - bounds.origin.x - bounds.size.width;
  const double bottom = point.y - bounds.origin.y - bounds.size.height;
  const bool inside = bounds.origin.x - point.x <= touchMargin && bounds.origin.y - point.y <= touchMargin &&
                      right <= touchMargin && bottom <= touchMargin;
  return inside ? Place::Inside : Place::Outside;
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

void cross(UIControl* self, Place place) {
  const bool inside = place == Place::Inside;
  objc::state(self).touchInside = inside;
  setHighlighted(self, inside);
  sendActions(self, inside ? touchDragEnter : touchDragExit);
}

void touchesMoved(UIControl* self, NSObject* touches, NSObject*) {
  const ControlState& state = objc::state(self);
  if (!state.tracking) return;
  const Place place = placeOf(self, touches);
  if ((place == Place::Inside) != state.touchInside) cross(self, place);
  sendActions(self, place == Place::Inside ? touchDragInside : touchDragOutside);
}

// The control is as before when its actions run: they may change it, or remove it.
void endTracking(UIControl* self, UIControlEvents events) {
  ControlState& state = objc::state(self);
  if (!state.tracking) return;
  state.tracking = false;
  state.touchInside = false;
  setHighlighted(self, false);
  sendActions(self, events);
}

void touchesEnded(UIControl* self, NSObject* touches, NSObject*) {
  endTracking(self, placeOf(self, touches) == Place::Inside ? UIControlEvents::TouchUpInside : touchUpOutside);
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
