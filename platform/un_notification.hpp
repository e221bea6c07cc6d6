// UNNotification: a notification as its sender made it.
#pragma once

#include "platform/ns_dictionary.hpp"

class UNNotificationContent : public objc::Interface<"UNNotificationContent", NSObject> {
 public:
  // What the sender put in for itself: values of any type.
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
