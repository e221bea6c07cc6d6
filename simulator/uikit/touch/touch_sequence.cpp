#include "simulator/uikit/touch/touch_sequence.hpp"

#include <algorithm>
#include <memory>

#include "simulator/uikit/touch/gesture_recognizer.hpp"
#include "simulator/uikit/touch/touch_state.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

namespace {

std::unique_ptr<TouchSequence>& currentSequence() {
  static std::unique_ptr<TouchSequence> instance;
  return instance;
}

// Searches the windows from front to back for a view at the point. Returns null if no window has such a view.
UIView* hitView(CGPoint point, UIEvent* event) {
  const std::vector<UIWindow*> windows = visibleWindows(mainScreen());
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    const CGPoint inWindow = convertPoint(point, nullptr, *window);
    if (UIView* hit = objc::send<UIView*, "hitTest:withEvent:">(*window, inWindow, event)) return hit;
  }
  return nullptr;
}

NSObject* singletonSet(UITouch* touch) {
  return objc::send<NSObject*, "setWithObject:">(objc::lookUpClass<"NSSet">(), touch);
}

void sendTouches(const void* receiver, UITouchPhase phase, UITouch* touch, UIEvent* event) {
  NSObject* touches = singletonSet(touch);
  switch (phase) {
    case UITouchPhase::Began:
      return objc::send<void, "touchesBegan:withEvent:">(receiver, touches, event);
    case UITouchPhase::Moved:
      return objc::send<void, "touchesMoved:withEvent:">(receiver, touches, event);
    case UITouchPhase::Ended:
      return objc::send<void, "touchesEnded:withEvent:">(receiver, touches, event);
    case UITouchPhase::Cancelled:
      return objc::send<void, "touchesCancelled:withEvent:">(receiver, touches, event);
    case UITouchPhase::Stationary:
      return;
  }
}

bool isFinal(UITouchPhase phase) { return phase == UITouchPhase::Ended || phase == UITouchPhase::Cancelled; }

}  // namespace

TouchSequence::TouchSequence(CGPoint point, double timestamp)
    : touch_(objc::make<UITouch>()), event_(objc::make<UIEvent>()), view_(objc::retain(hitView(point, event_))) {
  objc::state(touch_.get()) = {UITouchPhase::Began, point, point, timestamp, view_};
  if (view_ != nullptr) collectRecognizers();
}

TouchSequence::~TouchSequence() {
  for (const objc::Ref<UIGestureRecognizer>& recognizer : recognizers_)
    objc::state(recognizer.get()).state = UIGestureRecognizerState::Possible;
}

TouchSequence* TouchSequence::current() { return currentSequence().get(); }

// Collects the recognizers in the order from the touched view to the root, because inner recognizers receive touches
// before outer ones.
void TouchSequence::collectRecognizers() {
  for (UIView* view = view_; view != nullptr; view = record(view).superview) {
    NSArray* attached = objc::state(view).gestureRecognizers;
    for (NSUInteger index = 0; index < attached->count(); ++index) {
      auto* recognizer = static_cast<UIGestureRecognizer*>(attached->objectAtIndex(index));
      if (objc::state(recognizer).isEnabled) recognizers_.push_back(objc::retain(recognizer));
    }
  }
}

void TouchSequence::begin() {
  sendToRecognizers();
  sendToView(UITouchPhase::Began);
}

void TouchSequence::advance(UITouchPhase phase, CGPoint point, double timestamp) {
  TouchState& touch = objc::state(touch_.get());
  touch.phase = phase;
  touch.previousLocation = touch.location;
  touch.location = point;
  touch.timestamp = timestamp;
  sendToRecognizers();
  if (viewReceivesTouches_) sendToView(phase);
  if (isFinal(phase)) resetRecognizers();
}

void TouchSequence::sendToRecognizers() {
  const UITouchPhase phase = objc::state(touch_.get()).phase;
  const std::vector<objc::Ref<UIGestureRecognizer>> recognizers = recognizers_;
  for (const objc::Ref<UIGestureRecognizer>& recognizer : recognizers) {
    const GestureRecord& gesture = objc::state(recognizer.get());
    const bool isWaitingOrRecognizing = gesture.state == UIGestureRecognizerState::Possible || gesture.isRecognizing();
    const bool isOnScreen = gesture.view != nullptr && windowOf(gesture.view) != nullptr;
    if (isWaitingOrRecognizing && isOnScreen && gesture.isEnabled) sendTouches(recognizer.get(), phase, touch_, event_);
  }
}

void TouchSequence::sendToView(UITouchPhase phase) {
  if (view_ != nullptr) sendTouches(view_.get(), phase, touch_, event_);
}

bool TouchSequence::claim(UIGestureRecognizer* recognizer) {
  if (winner_ != nullptr ||
      std::ranges::find(recognizers_, recognizer, &objc::Ref<UIGestureRecognizer>::get) == recognizers_.end())
    return false;
  if (!objc::send<bool, "gestureRecognizerShouldBegin:">(view_.get(), recognizer)) return false;
  winner_ = recognizer;
  for (const objc::Ref<UIGestureRecognizer>& other : recognizers_)
    if (other.get() != recognizer) objc::state(other.get()).state = UIGestureRecognizerState::Failed;
  if (objc::state(recognizer).cancelsTouchesInView) {
    viewReceivesTouches_ = false;
    sendToView(UITouchPhase::Cancelled);
  }
  return true;
}

void TouchSequence::resetRecognizers() {
  for (const objc::Ref<UIGestureRecognizer>& recognizer : recognizers_)
    objc::state(recognizer.get()).state = UIGestureRecognizerState::Possible;
}

bool isFingerDown() { return TouchSequence::current() != nullptr; }

void deliverTouch(UITouchPhase phase, CGPoint screenPoint, double timestamp) {
  std::unique_ptr<TouchSequence>& sequence = currentSequence();
  if (phase == UITouchPhase::Began) {
    if (sequence != nullptr) deliverTouch(UITouchPhase::Cancelled, screenPoint, timestamp);
    layoutWindows();
    sequence = std::make_unique<TouchSequence>(screenPoint, timestamp);
    sequence->begin();
    return;
  }
  if (sequence == nullptr) return;
  sequence->advance(phase, screenPoint, timestamp);
  if (isFinal(phase)) sequence.reset();
}

}  // namespace uikit
