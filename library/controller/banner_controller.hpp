// The platform's notification controllers, with the properties and messages that the library adds to them. The other
// headers of this folder and library/messages/home_screen.hpp declare and document the functions that implement the
// messages. The names of the messages, including their spelling, are part of the library's public interface; do not
// change them. Main thread.
#pragma once

#include "library/view/brim_container.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/nc_notification_view_controller.hpp"

// The controller of a notification, which is presented in the banner window or elsewhere.
class NotificationController : public objc::Interface<"NCNotificationViewController", NCNotificationViewController> {
 public:
  // Whether the controller's view is in the banner window.
  bool isPartOfBanner() const { return objc::send<bool, "isPartOfBanner">(this); }
  // Appends the body of the notification in the view to the banner with the same header.
  void attemptUpdateReply(UIView* view) { objc::send<void, "attemptUpdateReply:">(this, view); }
  // Executes the notification's clear action.
  void attemptDelete() { objc::send<void, "attemptDelete">(this); }

  // The identifier of the banner. nil before the notification view is first presented; does not change afterwards.
  NSString* brimIdentifier() const { return objc::send<NSString*, "brimIdentifier">(this); }
  void setBrimIdentifier(NSString* identifier) { objc::send<void, "setBrimIdentifier:">(this, identifier); }
};

// The controller of a short look, the platform's compact view of a notification. Every banner belongs to a controller
// of this class.
class BannerController : public objc::Interface<"NCNotificationShortLookViewController", NotificationController> {
 public:
  // The attached banner, which the controller retains. nil before the banner is attached and after the banner is
  // removed.
  BrimContainer* brimView() const { return objc::send<BrimContainer*, "brimView">(this); }
  void setBrimView(BrimContainer* banner) { objc::send<void, "setBrimView:">(this, banner); }
  // True after the platform has dismissed the controller.
  bool hasDismissed() const { return objc::send<bool, "hasDismissed">(this); }
  void setHasDismissed(bool value) { objc::send<void, "setHasDismissed:">(this, value); }
  // True after the timer of the automatic dismissal has fired, or after a dismissal was forced. A dismissal starts only
  // if this property is true.
  bool autoDimissTriggered() const { return objc::send<bool, "autoDimissTriggered">(this); }
  void setAutoDimissTriggered(bool value) { objc::send<void, "setAutoDimissTriggered:">(this, value); }
  // True while the banner's dismissal animation is running.
  bool isDismissing() const { return objc::send<bool, "isDismissing">(this); }
  void setIsDismissing(bool value) { objc::send<void, "setIsDismissing:">(this, value); }
  // True after a newer banner has replaced this banner.
  bool wasExternallyDismissed() const { return objc::send<bool, "wasExternallyDismissed">(this); }
  void setWasExternallyDismissed(bool value) { objc::send<void, "setWasExternallyDismissed:">(this, value); }
  // True after a dismissal was requested, even if the banner stayed.
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
  // A nil view represents the attached banner.
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
  // Changes the banner's height for a drag of the given distance, in points. A positive distance increases the height.
  void expandBanner(CGFloat distance, BrimContainer* view, bool animated, objc::Block<void(bool)>* completion) {
    objc::send<void, "expandGestureHandler:forView:animated:completion:">(this, distance, view, animated, completion);
  }
};
