// NSDistributedNotificationCenter: broadcasts between processes.
#pragma once

#include "platform/ns_notification_center.hpp"

class NSDistributedNotificationCenter
    : public objc::Interface<"NSDistributedNotificationCenter", NSNotificationCenter> {
 public:
  static NSDistributedNotificationCenter* defaultCenter() {
    return objc::send<NSDistributedNotificationCenter*, "defaultCenter">(classObject());
  }
};
