// NSProcessInfo: information about the current process.
#pragma once

#include "platform/ns_string.hpp"

class NSProcessInfo : public objc::Interface<"NSProcessInfo", NSObject> {
 public:
  static NSProcessInfo* processInfo() { return objc::send<NSProcessInfo*, "processInfo">(classObject()); }
  // A new identifier for each call, unique across processes and devices.
  NSString* globallyUniqueString() const { return objc::send<NSString*, "globallyUniqueString">(this); }
};
