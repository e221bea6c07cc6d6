// The platform's notification controllers, with the properties and messages that the library adds to them. The
// interface fixes the names of the messages, their spelling included. Main thread.
#pragma once

#include "library/view/brim_container.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/nc_notification_view_controller.hpp"

// A controller of a notification in the banner window or elsewhere.
class NotificationController : public objc::Interface<"NCNotificationViewController", NCNotificationViewController> {
 public:
  // Whether the controller's view is in the banner window.
  bool isPartOfBanner() const { return objc::send<bool, "isPartOfBanner">(this); }
  // Appends the texts of the view's notification to a banner of the same conversation.
  void attemptUpdateReply(UIView* view) { objc::send<void, "attemptUpdateReply:">(this, view); }
  // Executes the notification's clear action.
  void attemptDelete() { objc::send<void, "attemptDelete">(this); }

  // Identifies the banner. nil until the banner is attached for the first time; does not change afterwards.
  NSString* brimIdentifier() const { return objc::send<NSString*, "brimIdentifier">(this); }
  void setBrimIdentifier(NSString* identifier) { objc::send<void, "setBrimIdentifier:">(this, identifier); }
};

// The controller of a short look; every banner belongs to one.
class BannerController : public objc::Interface<"NCNotificationShortLookViewController", NotificationController> {
 public:
  // The attached banner, retained. nil before it is attached and after it is removed.
  BrimContainer* brimView() const { return objc::send<BrimContainer*, "brimView">(this); }
  void setBrimView(BrimContainer* banner) { objc::send<void, "setBrimView:">(this, banner); }
  // The platform has dismissed the controller.
  bool hasDismissed() const { return objc::send<bool, "hasDismissed">(this); }
  void setHasDismissed(bool value) { objc::send<void, "setHasDismissed:">(this, value); }
  // The time until the automatic dismissal has passed, or a dismissal is forced. A dismissal requires one of them.
  bool autoDimissTriggered() const { return objc::send<bool, "autoDimissTriggered">(this); }
  void setAutoDimissTriggered(bool value) { objc::send<void, "setAutoDimissTriggered:">(this, value); }
  // The banner's dismissal animation is running.
  bool isDismissing() const { return objc::send<bool, "isDismissing">(this); }
  void setIsDismissing(bool value) { objc::send<void, "setIsDismissing:">(this, value); }
  // A newer banner replaces this one.
  bool wasExternallyDismissed() const { return objc::send<bool, "wasExternallyDismissed">(this); }
  void setWasExternallyDismissed(bool value) { objc::send<void, "setWasExternallyDismissed:">(this, value); }
  // A dismissal was requested, even if the banner stays.
  bool dismissCalled() const { return objc::send<bool, "dismissCalled">(this); }
  void setDismissCalled(bool value) { objc::send<void, "setDismissCalled:">(this, value); }

  void dismissViewController(NSInteger transition, objc::Block<void(bool)>* completion) {
    objc::send<void, "dismissViewControllerWithTransition:completion:">(this, transition, completion);
  }

  NSString* getBundleId() const { return objc::send<NSString*, "getBundleId">(this); }
  bool isAlarm() const { return objc::send<bool, "isAlarm">(this); }
  bool canReply() const { return objc::send<bool, "canReply">(this); }
  bool shouldAutoDismiss() const { return objc::send<bool, "shouldAutoDismiss">(this); }
  NSArray* getAlarmActions() const { return objc::send<NSArray*, "getAlarmActions">(this); }
  NCNotificationAction* getReplyAction() const { return objc::send<NCNotificationAction*, "getReplyAction">(this); }

  void updateProfilePicture(NSString* header, NSString* body, BrimContainer* view) {
    objc::send<void, "updateProfilePictureWithHeader:withBody:forView:">(this, header, body, view);
  }
  // nil means the attached banner.
  void forceDismissNotification(BrimContainer* view) {
    objc::send<void, "forceDismissNotificationForView:">(this, view);
  }
  void attemptDismissNotification(BrimContainer* view, bool forced) {
    objc::send<void, "attemptDismissNotificationForView:forced:">(this, view, forced);
  }
  void preDismiss() { objc::send<void, "preDismiss">(this); }
  void attemptDelete(BrimContainer* view) { objc::send<void, "attemptDelete:">(this, view); }
  void sendMessageReply(BrimContainer* view, NSString* text) {
    objc::send<void, "sendMessageReplyForView:withText:">(this, view, text);
  }
  void markMessagesAsRead() { objc::send<void, "markMessagesAsRead">(this); }

  // Moves the banner to its position at rest plus the offset, in points.
  void moveBanner(CGFloat offset, BrimContainer* view, bool animated, objc::Block<void(bool)>* completion) {
    objc::send<void, "dismissGestureHandler:forView:animated:completion:">(this, offset, view, animated, completion);
  }
  void moveBanner(CGFloat offset, BrimContainer* view, bool animated, double duration,
                  objc::Block<void(bool)>* completion) {
    objc::send<void, "dismissGestureHandler:forView:animated:duration:completion:">(this, offset, view, animated,
                                                                                    duration, completion);
  }
  // Increases the banner's height for a drag of that distance, in points.
  void expandBanner(CGFloat distance, BrimContainer* view, bool animated, objc::Block<void(bool)>* completion) {
    objc::send<void, "expandGestureHandler:forView:animated:completion:">(this, distance, view, animated, completion);
  }
};
