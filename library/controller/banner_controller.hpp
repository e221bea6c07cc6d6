// The platform's notification controllers with what the library adds to them: properties, and messages that hooks and
// banners send each other.
#pragma once

#include "library/view/brim_container.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/nc_notification_view_controller.hpp"

// Any controller of a notification.
class NotificationController : public objc::Interface<"NCNotificationViewController", NCNotificationViewController> {
 public:
  bool isPartOfBanner() const { return objc::send<bool, "isPartOfBanner">(this); }
  void attemptUpdateReply(UIView* view) { objc::send<void, "attemptUpdateReply:">(this, view); }
  void attemptDelete() { objc::send<void, "attemptDelete">(this); }

  // Names this banner among all; nil until it is first attached, then never changed.
  NSString* brimIdentifier() const { return objc::send<NSString*, "brimIdentifier">(this); }
  void setBrimIdentifier(NSString* identifier) { objc::send<void, "setBrimIdentifier:">(this, identifier); }
};

// The controller of a short look, which is what banners are.
class BannerController : public objc::Interface<"NCNotificationShortLookViewController", NotificationController> {
 public:
  // The attached banner, kept; nil before and after.
  BrimContainer* brimView() const { return objc::send<BrimContainer*, "brimView">(this); }
  void setBrimView(BrimContainer* banner) { objc::send<void, "setBrimView:">(this, banner); }
  // The controller has left the screen.
  bool hasDismissed() const { return objc::send<bool, "hasDismissed">(this); }
  void setHasDismissed(bool value) { objc::send<void, "setHasDismissed:">(this, value); }
  // The dismissal may proceed.
  bool autoDimissTriggered() const { return objc::send<bool, "autoDimissTriggered">(this); }
  void setAutoDimissTriggered(bool value) { objc::send<void, "setAutoDimissTriggered:">(this, value); }
  // The banner's dismissal animation is running.
  bool isDismissing() const { return objc::send<bool, "isDismissing">(this); }
  void setIsDismissing(bool value) { objc::send<void, "setIsDismissing:">(this, value); }
  // A newer banner has taken this one's place.
  bool wasExternallyDismissed() const { return objc::send<bool, "wasExternallyDismissed">(this); }
  void setWasExternallyDismissed(bool value) { objc::send<void, "setWasExternallyDismissed:">(this, value); }
  // Some dismissal has been asked for.
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
  // Where the view is nil the attached banner is meant.
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

  // Moves the banner to its resting place plus the offset.
  void moveBanner(CGFloat offset, BrimContainer* view, bool animated, objc::Block<void(bool)>* completion) {
    objc::send<void, "dismissGestureHandler:forView:animated:completion:">(this, offset, view, animated, completion);
  }
  void moveBanner(CGFloat offset, BrimContainer* view, bool animated, double duration,
                  objc::Block<void(bool)>* completion) {
    objc::send<void, "dismissGestureHandler:forView:animated:duration:completion:">(this, offset, view, animated,
                                                                                    duration, completion);
  }
  void expandBanner(CGFloat distance, BrimContainer* view, bool animated, objc::Block<void(bool)>* completion) {
    objc::send<void, "expandGestureHandler:forView:animated:completion:">(this, distance, view, animated, completion);
  }
};

// The bundle identifier of the Messages app, whose notifications are answered through the app itself.
inline NSString* messagesIdentifier() { return "com.apple.MobileSMS"_ns; }

// The controller's banner drops out of sight at once.
inline void removeBanner(BannerController* controller) {
  const objc::Ref<BrimContainer> banner = objc::retain(controller->brimView());
  banner->removeFromSuperview();
  controller->setBrimView(nullptr);
}
