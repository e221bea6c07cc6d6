// How events reach views: hit testing, gesture recognizers and the responder chain.
#include "platform/ui_control.hpp"
#include "simulator/uikit/touch/gesture_recognizer.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

NSObject* nearestViewController(const UIView* view) {
  const UIResponder* responder = view;
  while (responder != nullptr && objc::as<UIViewController>(responder) == nullptr)
    responder = responder->nextResponder();
  return const_cast<UIResponder*>(responder);
}

namespace {

constexpr double minTouchableAlpha = 0.01;

bool isUserInteractionEnabled(UIView* self) { return record(self).userInteraction == UserInteraction::Enabled; }
void setUserInteractionEnabled(UIView* self, bool enabled) {
  record(self).userInteraction = enabled ? UserInteraction::Enabled : UserInteraction::Disabled;
}

bool pointInside(UIView* self, CGPoint point, NSObject*) { return contains(record(self).layer.bounds.model(), point); }

UIView* hitTest(UIView* self, CGPoint point, NSObject* event) {
  const ViewRecord& state = record(self);
  if (state.layer.hidden || state.userInteraction == UserInteraction::Disabled ||
      state.layer.opacity.model() < minTouchableAlpha)
    return nullptr;
  if (!objc::send<bool, "pointInside:withEvent:">(self, point, event)) return nullptr;
  const std::vector<objc::Ref<UIView>> subviews = state.subviews;
  for (auto subview = subviews.rbegin(); subview != subviews.rend(); ++subview) {
    const CGPoint inside = convertPoint(point, self, subview->get());
    if (UIView* hit = objc::send<UIView*, "hitTest:withEvent:">(subview->get(), inside, event)) return hit;
  }
  return self;
}

UIResponder* nextResponder(UIView* self) {
  const ViewRecord& state = record(self);
  if (state.viewController != nullptr) return state.viewController;
  return state.superview;
}

NSArray* gestureRecognizers(UIView* self) {
  const objc::Ref<NSMutableArray>& attached = objc::state(self).gestureRecognizers;
  if (attached == nullptr) return nullptr;
  return objc::autorelease(attached->copied());
}

void removeGestureRecognizer(UIView* self, UIGestureRecognizer* recognizer) {
  if (recognizer == nullptr || objc::state(recognizer).view != self) return;
  objc::state(recognizer).view = nullptr;
  objc::Ref<NSMutableArray>& attached = objc::state(self).gestureRecognizers;
  objc::send<void, "removeObjectIdenticalTo:">(attached.get(), recognizer);
  if (attached->count() == 0) attached = nullptr;
}

// Adds a recognizer to the view. If the recognizer has another view, removes it from that view, because a recognizer
// has at most one view.
void addGestureRecognizer(UIView* self, UIGestureRecognizer* recognizer) {
  if (recognizer == nullptr || objc::state(recognizer).view == self) return;
  const objc::Ref<UIGestureRecognizer> retained = objc::retain(recognizer);
  if (UIView* previous = objc::state(recognizer).view) previous->removeGestureRecognizer(recognizer);
  objc::Ref<NSMutableArray>& attached = objc::state(self).gestureRecognizers;
  if (attached == nullptr) attached = objc::make<NSMutableArray>();
  attached->addObject(recognizer);
  objc::state(recognizer).view = self;
}

// Returns whether a recognizer may begin while this view is touched. An enabled control prevents the tap recognizers of
// its superviews from beginning.
bool gestureRecognizerShouldBegin(UIView* self, UIGestureRecognizer* recognizer) {
  if (objc::state(recognizer).view == self || objc::as<UITapGestureRecognizer>(recognizer) == nullptr) return true;
  const UIControl* control = objc::as<UIControl>(self);
  return control == nullptr || !objc::send<bool, "isEnabled">(control);
}

}  // namespace

std::span<const objc::MethodEntry> viewInteractionMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"isUserInteractionEnabled", &isUserInteractionEnabled>(),
      objc::method<"setUserInteractionEnabled:", &setUserInteractionEnabled>(),
      objc::method<"pointInside:withEvent:", &pointInside>(),
      objc::method<"hitTest:withEvent:", &hitTest>(),
      objc::method<"nextResponder", &nextResponder>(),
      objc::method<"gestureRecognizers", &gestureRecognizers>(),
      objc::method<"addGestureRecognizer:", &addGestureRecognizer>(),
      objc::method<"removeGestureRecognizer:", &removeGestureRecognizer>(),
      objc::method<"gestureRecognizerShouldBegin:", &gestureRecognizerShouldBegin>(),
  };
  return methods;
}

}  // namespace uikit
