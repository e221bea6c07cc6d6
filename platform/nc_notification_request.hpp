// NCNotificationRequest: a notification that the home screen presents, with its actions and options. Main thread only.
#pragma once

#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"
#include "platform/un_notification.hpp"

class NCNotificationAction : public objc::Interface<"NCNotificationAction", NSObject> {
 public:
  NSString* identifier() const { return objc::send<NSString*, "identifier">(this); }
};

class NCNotificationOptions : public objc::Interface<"NCNotificationOptions", NSObject> {
 public:
  bool dismissAutomatically() const { return objc::send<bool, "dismissAutomatically">(this); }
};

// Each returned object can be nil.
class NCNotificationRequest : public objc::Interface<"NCNotificationRequest", NSObject> {
 public:
  NSString* sectionIdentifier() const { return objc::send<NSString*, "sectionIdentifier">(this); }
  NSString* threadIdentifier() const { return objc::sendIfAvailable<NSString*, "threadIdentifier">(this); }
  NCNotificationAction* clearAction() const { return objc::send<NCNotificationAction*, "clearAction">(this); }
  NCNotificationAction* silenceAction() const {
    return objc::sendIfAvailable<NCNotificationAction*, "silenceAction">(this);
  }
  NCNotificationAction* closeAction() const { return objc::send<NCNotificationAction*, "closeAction">(this); }
  // The actions that the application adds, in groups. Each value of the dictionary is an array of NCNotificationAction
  // objects.
  NSDictionary* supplementaryActions() const { return objc::send<NSDictionary*, "supplementaryActions">(this); }
  NCNotificationOptions* options() const { return objc::send<NCNotificationOptions*, "options">(this); }
  UNNotification* userNotification() const { return objc::sendIfAvailable<UNNotification*, "userNotification">(this); }
};
