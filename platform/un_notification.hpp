// UNNotification: a notification with the content that its sender created, which is untrusted input.
#pragma once

#include "platform/ns_dictionary.hpp"

class UNNotificationContent : public objc::Interface<"UNNotificationContent", NSObject> {
 public:
  // Data that the sender attaches for its own application. The values can have any type.
  NSDictionary* userInfo() const { return objc::send<NSDictionary*, "userInfo">(this); }
};

class UNNotificationRequest : public objc::Interface<"UNNotificationRequest", NSObject> {
 public:
  UNNotificationContent* content() const { return objc::send<UNNotificationContent*, "content">(this); }
};

class UNNotification : public objc::Interface<"UNNotification", NSObject> {
 public:
  UNNotificationRequest* request() const { return objc::send<UNNotificationRequest*, "request">(this); }
};
