#include "simulator/uikit/touch/gesture_recognizer.hpp"

#include <cmath>
#include <cstring>

#include "simulator/uikit/touch/touch_sequence.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

void detachFromView(NSArray* recognizers) {
  for (NSUInteger index = 0; index < recognizers->count(); ++index)
    objc::state(static_cast<UIGestureRecognizer*>(recognizers->objectAtIndex(index))).view = nullptr;
}

namespace {

using State = UIGestureRecognizerState;

bool takesArgument(SEL selector) { return std::strchr(sel_getName(selector), ':') != nullptr; }

void sendActions(UIGestureRecognizer* self) {
  const objc::Ref<UIGestureRecognizer> retained = objc::retain(self);
  const std::vector<GestureAction> actions = objc::state(self).actions;
  for (const GestureAction& action : actions) {
    const objc::Ref<NSObject> target = action.target.lock();
    if (target == nullptr) continue;
    const id receiver = objc::detail::toId(target.get());
    const IMP implementation = objc::implementationFor(receiver, action.selector);
    if (takesArgument(action.selector))
      objc::detail::call<void>(implementation, receiver, action.selector, self);
    else
      objc::detail::call<void>(implementation, receiver, action.selector);
  }
}

bool begins(State from, State to) { return from == State::Possible && (to == State::Began || to == State::Ended); }

bool claimTouch(UIGestureRecognizer* self) {
  TouchSequence* sequence = TouchSequence::current();
  return sequence != nullptr && sequence->claim(self);
}

double distance(CGPoint from, CGPoint to) { return std::hypot(to.x - from.x, to.y - from.y); }

bool hasDragged(const GestureRecord& gesture) {
  constexpr double roundingAllowance = 1e-6;  // a location that is the sum of many steps is not exact
  return distance(gesture.down, gesture.location) >= dragDistance - roundingAllowance;
}

// Updates the speed from the distance since the last measurement. Movements that are delivered at almost the same time
// are measured together, because their times are not exact. The speed is zero if the finger has rested.
void measureVelocity(GestureRecord& gesture, double time) {
  constexpr double minMeasuredSeconds = 0.005;
  constexpr double maxRestSeconds = 0.1;
  const double seconds = time - gesture.measuredTime;
  if (seconds < minMeasuredSeconds) return;
  const CGPoint moved = {gesture.location.x - gesture.measuredLocation.x,
                         gesture.location.y - gesture.measuredLocation.y};
  if (moved.x == 0 && moved.y == 0) {
    if (seconds > maxRestSeconds) gesture.velocity = {};
    return;
  }
  gesture.velocity = {moved.x / seconds, moved.y / seconds};
  gesture.measuredLocation = gesture.location;
  gesture.measuredTime = time;
}

// Stores the location of the finger. A subclass calls this method of the base class first and then reads the location.
void trackLocation(UIGestureRecognizer* self, NSObject* touches, NSObject*) {
  UITouch* touch = anyTouch(touches);
  GestureRecord& gesture = objc::state(self);
  gesture.location = touch->locationInView(nullptr);
  gesture.location =
      convertPoint(gesture.location, touch->view() == nullptr ? nullptr : rootOf(touch->view()), nullptr);
  if (touch->phase() != UITouchPhase::Began) return measureVelocity(gesture, touch->timestamp());
  gesture.down = gesture.location;
  gesture.velocity = {};
  gesture.measuredLocation = gesture.location;
  gesture.measuredTime = touch->timestamp();
}

void failOrCancel(UIGestureRecognizer* self) {
  changeState(self, objc::state(self).isRecognizing() ? State::Cancelled : State::Failed);
}
void cancelled(UIGestureRecognizer* self, NSObject*, NSObject*) { failOrCancel(self); }

void tapMoved(UIGestureRecognizer* self, NSObject* touches, NSObject* event) {
  objc::sendSuper<"UITapGestureRecognizer", void, "touchesMoved:withEvent:">(self, touches, event);
  if (hasDragged(objc::state(self))) changeState(self, State::Failed);
}
void tapEnded(UIGestureRecognizer* self, NSObject* touches, NSObject* event) {
  objc::sendSuper<"UITapGestureRecognizer", void, "touchesEnded:withEvent:">(self, touches, event);
  changeState(self, hasDragged(objc::state(self)) ? State::Failed : State::Ended);
}

void panMoved(UIGestureRecognizer* self, NSObject* touches, NSObject* event) {
  objc::sendSuper<"UIPanGestureRecognizer", void, "touchesMoved:withEvent:">(self, touches, event);
  const GestureRecord& gesture = objc::state(self);
  if (gesture.isRecognizing())
    changeState(self, State::Changed);
  else if (hasDragged(gesture))
    changeState(self, State::Began);
}
void panEnded(UIGestureRecognizer* self, NSObject* touches, NSObject* event) {
  objc::sendSuper<"UIPanGestureRecognizer", void, "touchesEnded:withEvent:">(self, touches, event);
  changeState(self, objc::state(self).isRecognizing() ? State::Ended : State::Failed);
}

CGPoint translationInView(UIGestureRecognizer* self, UIView*) {
  const GestureRecord& gesture = objc::state(self);
  return {gesture.location.x - gesture.down.x, gesture.location.y - gesture.down.y};
}

CGPoint velocityInView(UIGestureRecognizer* self, UIView*) { return objc::state(self).velocity; }

// Changes the start of the touch, so that the current location has this translation.
void setTranslation(UIGestureRecognizer* self, CGPoint translation, UIView*) {
  GestureRecord& gesture = objc::state(self);
  gesture.down = {gesture.location.x - translation.x, gesture.location.y - translation.y};
}

UIGestureRecognizer* initWithTarget(UIGestureRecognizer* self, NSObject* target, SEL action) {
  auto* made = objc::sendSuper<"UIGestureRecognizer", UIGestureRecognizer*, "init">(self);
  if (made != nullptr && target != nullptr) objc::send<void, "addTarget:action:">(made, target, action);
  return made;
}
UIGestureRecognizer* init(UIGestureRecognizer* self) { return initWithTarget(self, nullptr, nullptr); }

void addTarget(UIGestureRecognizer* self, NSObject* target, SEL action) {
  if (target != nullptr && action != nullptr)
    objc::state(self).actions.push_back({objc::Weak<NSObject>(target), action});
}

// Removes actions. A nil target selects every target. A null action selects every action.
void removeTarget(UIGestureRecognizer* self, NSObject* target, SEL action) {
  std::erase_if(objc::state(self).actions, [&](const GestureAction& each) {
    return (target == nullptr || each.target.lock().get() == target) &&
           (action == nullptr || sel_isEqual(each.selector, action));
  });
}

UIGestureRecognizerState state(UIGestureRecognizer* self) { return objc::state(self).state; }
UIView* view(UIGestureRecognizer* self) { return objc::state(self).view; }

bool isEnabled(UIGestureRecognizer* self) { return objc::state(self).isEnabled; }
void setEnabled(UIGestureRecognizer* self, bool enabled) {
  objc::state(self).isEnabled = enabled;
  if (!enabled && objc::state(self).isRecognizing()) changeState(self, State::Cancelled);
}

bool cancelsTouchesInView(UIGestureRecognizer* self) { return objc::state(self).cancelsTouchesInView; }
void setCancelsTouchesInView(UIGestureRecognizer* self, bool cancels) {
  objc::state(self).cancelsTouchesInView = cancels;
}

// Returns the location in the coordinates of the view. If the view is nil, returns it in the coordinates of the window.
CGPoint locationInView(UIGestureRecognizer* self, UIView* coordinateView) {
  const GestureRecord& gesture = objc::state(self);
  if (coordinateView == nullptr && gesture.view != nullptr) coordinateView = rootOf(gesture.view);
  return convertPoint(gesture.location, nullptr, coordinateView);
}

}  // namespace

void changeState(UIGestureRecognizer* recognizer, UIGestureRecognizerState state) {
  GestureRecord& gesture = objc::state(recognizer);
  const bool isBeginning = begins(gesture.state, state);
  if (isBeginning && !claimTouch(recognizer)) state = State::Failed;
  gesture.state = state;
  if (state != State::Failed && state != State::Possible) sendActions(recognizer);
}

void defineGestureRecognizer() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"init", &init>(),
      objc::method<"initWithTarget:action:", &initWithTarget>(),
      objc::method<"addTarget:action:", &addTarget>(),
      objc::method<"removeTarget:action:", &removeTarget>(),
      objc::method<"state", &state>(),
      objc::method<"setState:", &changeState>(),
      objc::method<"view", &view>(),
      objc::method<"isEnabled", &isEnabled>(),
      objc::method<"setEnabled:", &setEnabled>(),
      objc::method<"cancelsTouchesInView", &cancelsTouchesInView>(),
      objc::method<"setCancelsTouchesInView:", &setCancelsTouchesInView>(),
      objc::method<"locationInView:", &locationInView>(),
      objc::method<"touchesBegan:withEvent:", &trackLocation>(),
      objc::method<"touchesMoved:withEvent:", &trackLocation>(),
      objc::method<"touchesEnded:withEvent:", &trackLocation>(),
      objc::method<"touchesCancelled:withEvent:", &cancelled>(),
  };
  static constexpr objc::MethodEntry tapMethods[] = {
      objc::method<"touchesMoved:withEvent:", &tapMoved>(),
      objc::method<"touchesEnded:withEvent:", &tapEnded>(),
  };
  static constexpr objc::MethodEntry panMethods[] = {
      objc::method<"touchesMoved:withEvent:", &panMoved>(),
      objc::method<"touchesEnded:withEvent:", &panEnded>(),
      objc::method<"translationInView:", &translationInView>(),
      objc::method<"setTranslation:inView:", &setTranslation>(),
      objc::method<"velocityInView:", &velocityInView>(),
  };
  objc::defineClassWithState<UIGestureRecognizer>(methods);
  objc::defineClass<UITapGestureRecognizer>(tapMethods);
  objc::defineClass<UIPanGestureRecognizer>(panMethods);
}

}  // namespace uikit
