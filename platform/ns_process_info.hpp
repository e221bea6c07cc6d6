// NSProcessInfo: the process itself.
#pragma once

#include "platform/ns_string.hpp"

class NSProcessInfo : public objc::Interface<"NSProcessInfo", NSObject> {
 public:
  static NSProcessInfo* processInfo() { return objc::send<NSProcessInfo*, "processInfo">(classObject()); }
  // Another one at every call, on any machine.
  NSString* globallyUniqueString() const { return objc::send<NSString*, "globallyUniqueString">(this); }
};
