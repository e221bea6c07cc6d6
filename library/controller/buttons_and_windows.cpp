#include "library/controller/commands.hpp"
#include "library/controller/gestures.hpp"

namespace {

constexpr NSInteger homeButton = 101;

UIWindow* sharedStatusBarWindow;

bool isHomeButtonGoingUp(UIPressesEvent* event) {
  NSArray* presses = event->allPresses()->allObjects();
  if (presses->count() == 0) return false;
  auto* first = static_cast<UIPress*>(presses->firstObject());
  return first->type() == homeButton && static_cast<NSInteger>(first->force()) == 0;
}

}  // namespace

bool handlePhysicalButton(objc::Original<bool(NSObject*, UIPressesEvent*)> original, NSObject* self,
                          UIPressesEvent* event) {
  const bool result = original(self, event);
  if (isHomeButtonGoingUp(event) && !BrimContainer::DismissNotification()) post(Command::DismissWithoutAnimation);
  return result;
}

UIWindow* statusBarWindowInit(objc::Original<UIWindow*(UIWindow*, CGRect)> original, UIWindow* self, CGRect frame) {
  UIWindow* window = original(self, frame);
  if (window != nullptr && sharedStatusBarWindow == nullptr) sharedStatusBarWindow = objc::retain(window).leak();
  return window;
}

UIWindow* brimSharedWindow(Class) { return sharedStatusBarWindow; }
