// The view controllers of a notification: their base class, the controller of the short look, and the container. The
// short look is the platform's compact view of a notification, such as a banner. Main thread only.
#pragma once

#include "platform/nc_notification_request.hpp"
#include "platform/ui_view_controller.hpp"

class NCNotificationViewController : public objc::Interface<"NCNotificationViewController", UIViewController> {
 public:
  // The notification that the controller presents; nil if there is none.
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
  // Returns a null reference if the request cannot be presented.
  static objc::Ref<NCNotificationContentContainerViewController> withRequest(NCNotificationRequest* request) {
    return objc::adopt(objc::send<NCNotificationContentContainerViewController*, "initWithNotificationRequest:">(
        objc::allocate<NCNotificationContentContainerViewController>(), request));
  }
};
