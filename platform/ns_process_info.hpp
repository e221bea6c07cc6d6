// NSProcessInfo: information about the current process.
#pragma once

#include "platform/ns_string.hpp"

class NSProcessInfo : public objc::Interface<"NSProcessInfo", NSObject> {
 public:
  static NSProcessInfo* processInfo() { return objc::send<NSProcessInfo*, "processInfo">(classObject()); }
  // Returns a new identifier at each call. It is unique across processes and devices.
  NSString* globallyUniqueString() const { return objc::send<NSString*, "globallyUniqueString">(this); }
};
