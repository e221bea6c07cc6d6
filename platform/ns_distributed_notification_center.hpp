// NSDistributedNotificationCenter: notifications between processes. Observers are called on the main thread of their
// process. The values of userInfo must be property-list objects.
#pragma once

#include "platform/ns_notification_center.hpp"

class NSDistributedNotificationCenter
    : public objc::Interface<"NSDistributedNotificationCenter", NSNotificationCenter> {
 public:
  static NSDistributedNotificationCenter* defaultCenter() {
    return objc::send<NSDistributedNotificationCenter*, "defaultCenter">(classObject());
  }
};
