#include "library/controller/window_hooks.hpp"

namespace {

UIWindow* sharedStatusBarWindow;

}  // namespace

bool userInteractionEnabled(objc::Original<bool(NCNotificationContentContainerViewController*)>,
                            NCNotificationContentContainerViewController*) {
  return true;
}

bool performAction(objc::Original<bool(NCNotificationContentContainerViewController*, NCNotificationAction*,
                                       NCNotificationRequest*, NSDictionary*)>
                       original,
                   NCNotificationContentContainerViewController* self, NCNotificationAction* action,
                   NCNotificationRequest* request, NSDictionary* userInfo) {
  return original(self, action, request, userInfo);
}

bool canBecomeKeyWindow(objc::Original<bool(UIWindow*)>, UIWindow*) { return true; }

UIWindow* statusBarWindowInit(objc::Original<UIWindow*(UIWindow*, CGRect)> original, UIWindow* self, CGRect frame) {
  UIWindow* window = original(self, frame);
  if (window != nullptr && sharedStatusBarWindow == nullptr) sharedStatusBarWindow = objc::retain(window).leak();
  return window;
}

UIWindow* brimSharedWindow(Class) { return sharedStatusBarWindow; }
