// Notification requests. A request contains the content and the actions of a notification that an application posts.
// Main thread.
#pragma once

#include <optional>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/nc_notification_request.hpp"
#include "platform/ns_date.hpp"
#include "platform/ui_image.hpp"

// The texts and icons of a request. Each of these values can be nil.
class NCNotificationContent : public objc::Interface<"NCNotificationContent", NSObject> {
 public:
  NSString* title() const { return objc::send<NSString*, "title">(this); }
  NSString* subtitle() const { return objc::send<NSString*, "subtitle">(this); }
  NSString* message() const { return objc::send<NSString*, "message">(this); }
  NSString* summary() const { return objc::send<NSString*, "summary">(this); }
  NSArray* icons() const { return objc::send<NSArray*, "icons">(this); }
  NSDate* date() const { return objc::send<NSDate*, "date">(this); }
};

struct NotificationActionState {
  objc::Ref<NSString> identifier;
  objc::Ref<NSString> title;
  bool acceptsText = false;
  bool shouldDismissNotification = true;
};
template <>
struct objc::StateOf<NCNotificationAction> {
  using Type = NotificationActionState;
};

struct NotificationOptionsState {
  bool dismissAutomatically = true;
};
template <>
struct objc::StateOf<NCNotificationOptions> {
  using Type = NotificationOptionsState;
};

struct NotificationContentState {
  objc::Ref<NSString> title;
  objc::Ref<NSString> subtitle;
  objc::Ref<NSString> message;
  objc::Ref<NSString> summary;
  objc::Ref<NSArray> icons;
  objc::Ref<NSDate> date;
};
template <>
struct objc::StateOf<NCNotificationContent> {
  using Type = NotificationContentState;
};

struct UserNotificationContentState {
  objc::Ref<NSString> title;
  objc::Ref<NSString> subtitle;
  objc::Ref<NSString> body;
  objc::Ref<NSString> threadIdentifier;
  objc::Ref<NSDictionary> userInfo;
};
template <>
struct objc::StateOf<UNNotificationContent> {
  using Type = UserNotificationContentState;
};

struct UserNotificationRequestState {
  objc::Ref<NSString> identifier;
  objc::Ref<UNNotificationContent> content;
};
template <>
struct objc::StateOf<UNNotificationRequest> {
  using Type = UserNotificationRequestState;
};

struct UserNotificationState {
  objc::Ref<NSDate> date;
  objc::Ref<UNNotificationRequest> request;
};
template <>
struct objc::StateOf<UNNotification> {
  using Type = UserNotificationState;
};

struct NotificationRequestState {
  objc::Ref<NSString> sectionIdentifier;
  objc::Ref<NSString> threadIdentifier;
  objc::Ref<NSString> notificationIdentifier;
  objc::Ref<NSDate> timestamp;
  objc::Ref<NCNotificationContent> content;
  objc::Ref<NCNotificationAction> defaultAction;
  objc::Ref<NCNotificationAction> clearAction;
  objc::Ref<NCNotificationAction> silenceAction;
  objc::Ref<NCNotificationAction> closeAction;
  objc::Ref<NSDictionary> supplementaryActions;
  objc::Ref<NCNotificationOptions> options;
  objc::Ref<UNNotification> userNotification;
};
template <>
struct objc::StateOf<NCNotificationRequest> {
  using Type = NotificationRequestState;
};

namespace springboard {

struct NotificationDescription;

// Creates a request. `icon` is the icon of the notification. If it is nil, the icon of the application is used.
objc::Ref<NCNotificationRequest> makeRequest(const NotificationDescription& description, UIImage* icon);

// The changed texts of a follow-up. A text that has no value does not change.
struct FollowUp {
  std::optional<std::string> title;
  std::optional<std::string> subtitle;
  std::optional<std::string> message;
  std::optional<std::string> summary;
};
// Returns a copy of the request with the changed texts and the current time.
objc::Ref<NCNotificationRequest> makeFollowUp(NCNotificationRequest* request, const FollowUp& texts);

void defineNotificationRequest();

}  // namespace springboard
