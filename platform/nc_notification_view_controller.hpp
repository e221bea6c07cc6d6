// The view controllers of a notification: the base class, the short look that banners are, and the container.
#pragma once

#include "platform/nc_notification_request.hpp"
#include "platform/ui_view_controller.hpp"

class NCNotificationViewController : public objc::Interface<"NCNotificationViewController", UIViewController> {
 public:
  // nil while the controller shows nothing.
  NCNotificationRequest* notificationRequest() const {
    return objc::send<NCNotificationRequest*, "notificationRequest">(this);
  }
  void askDelegateToExecuteAction(NCNotificationAction* action, NSDictionary* parameters, bool animated) {
    objc::send<void, "_askDelegateToExecuteAction:withParameters:animated:">(this, action, parameters, animated);
  }
};

class NCNotificationShortLookViewController
    : public objc::Interface<"NCNotificationShortLookViewController", NCNotificationViewController> {
 public:
  void dismissViewController(NSInteger transition, objc::Block<void(bool)>* completion) {
    objc::send<void, "dismissViewControllerWithTransition:completion:">(this, transition, completion);
  }
};

class NCNotificationContentContainerViewController
    : public objc::Interface<"NCNotificationContentContainerViewController", UIViewController> {
 public:
  // nil where the request cannot be shown.
  static objc::Ref<NCNotificationContentContainerViewController> withRequest(NCNotificationRequest* request) {
    return objc::adopt(objc::send<NCNotificationContentContainerViewController*, "initWithNotificationRequest:">(
        objc::allocate<NCNotificationContentContainerViewController>(), request));
  }
};
