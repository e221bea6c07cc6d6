#include "simulator/uikit/views/responder.hpp"

#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

UIWindow* windowOfResponder(const UIResponder* responder) {
  while (responder != nullptr && objc::as<UIView>(responder) == nullptr) responder = responder->nextResponder();
  return responder == nullptr ? nullptr : windowOf(static_cast<const UIView*>(responder));
}

namespace {

UIView* viewOfResponder(UIResponder* responder) {
  if (UIViewController* controller = objc::as<UIViewController>(responder)) return controller->view();
  return objc::as<UIView>(responder);
}

}  // namespace

void resignFirstResponderInside(UIView* leaving) {
  UIWindow* window = windowOf(leaving);
  if (window == nullptr) return;
  WindowState& state = objc::state(window);
  if (state.firstResponder == nullptr) return;
  const UIView* view = viewOfResponder(state.firstResponder);
  if (view == nullptr || !isDescendant(view, leaving)) return;
  objc::send<bool, "resignFirstResponder">(state.firstResponder);
  state.firstResponder = nullptr;
}

namespace {

UIResponder* nextResponder(UIResponder*) { return nullptr; }
bool canBecomeFirstResponder(UIResponder*) { return false; }
bool canResignFirstResponder(UIResponder*) { return true; }

bool isFirstResponder(UIResponder* self) {
  UIWindow* window = windowOfResponder(self);
  return window != nullptr && objc::state(window).firstResponder == self;
}

bool becomeFirstResponder(UIResponder* self) {
  UIWindow* window = windowOfResponder(self);
  if (window == nullptr || !objc::send<bool, "canBecomeFirstResponder">(self)) return false;
  UIResponder* current = objc::state(window).firstResponder;
  if (current == self) return true;
  if (current != nullptr && !objc::send<bool, "resignFirstResponder">(current)) return false;
  objc::state(window).firstResponder = self;
  return true;
}

bool resignFirstResponder(UIResponder* self) {
  if (!isFirstResponder(self)) return true;
  if (!objc::send<bool, "canResignFirstResponder">(self)) return false;
  objc::state(windowOfResponder(self)).firstResponder = nullptr;
  return true;
}

// Forwards a touch to the next responder. This is the default implementation for responders that do not handle touches.
template <objc::FixedString selector>
void forwardTouches(UIResponder* self, NSObject* touches, NSObject* event) {
  objc::send<void, selector>(self->nextResponder(), touches, event);
}

}  // namespace

void defineResponder() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"nextResponder", &nextResponder>(),
      objc::method<"canBecomeFirstResponder", &canBecomeFirstResponder>(),
      objc::method<"canResignFirstResponder", &canResignFirstResponder>(),
      objc::method<"isFirstResponder", &isFirstResponder>(),
      objc::method<"becomeFirstResponder", &becomeFirstResponder>(),
      objc::method<"resignFirstResponder", &resignFirstResponder>(),
      objc::method<"touchesBegan:withEvent:", &forwardTouches<"touchesBegan:withEvent:">>(),
      objc::method<"touchesMoved:withEvent:", &forwardTouches<"touchesMoved:withEvent:">>(),
      objc::method<"touchesEnded:withEvent:", &forwardTouches<"touchesEnded:withEvent:">>(),
      objc::method<"touchesCancelled:withEvent:", &forwardTouches<"touchesCancelled:withEvent:">>(),
  };
  objc::defineClass<UIResponder>(methods);
}

}  // namespace uikit
