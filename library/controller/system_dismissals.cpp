#include "library/controller/system_dismissals.hpp"

#include "library/controller/commands.hpp"

namespace {

constexpr NSInteger homeButton = 101;

bool isHomeButtonRelease(UIPressesEvent* event) {
  NSArray* presses = event->allPresses()->allObjects();
  if (presses->count() == 0) return false;
  auto* first = static_cast<UIPress*>(presses->firstObject());
  return first->type() == homeButton && static_cast<NSInteger>(first->force()) == 0;
}

}  // namespace

bool handlePhysicalButton(objc::Original<bool(NSObject*, UIPressesEvent*)> original, NSObject* self,
                          UIPressesEvent* event) {
  const bool result = original(self, event);
  if (isHomeButtonRelease(event) && !BrimContainer::DismissNotification()) post(Command::DismissWithoutAnimation);
  return result;
}

bool grabberDismiss(objc::Original<bool(NSObject*, NSInteger, bool)> original, NSObject* self, NSInteger style,
                    bool animated) {
  if (BrimContainer::DismissNotification()) return original(self, style, animated);
  post(Command::Dismiss);
  return true;
}

void activateLockScreen(
    objc::Original<void(NSObject*, bool, NSObject*, bool, bool, bool, bool, objc::Block<void()>*)> original,
    NSObject* self, bool animated, NSObject* animationProvider, bool automatically, bool inScreenOffMode,
    bool dimInAnimation, bool dismissNotificationCenter, objc::Block<void()>* completion) {
  post(Command::DismissWithoutAnimation);
  original(self, animated, animationProvider, automatically, inScreenOffMode, dimInAnimation, dismissNotificationCenter,
           completion);
}
