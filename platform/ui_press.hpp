// UIPress and UIPressesEvent: a physical button that is pressed or released. Main thread only.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_array.hpp"

class UIPress : public objc::Interface<"UIPress", NSObject> {
 public:
  NSInteger type() const { return objc::send<NSInteger, "type">(this); }
  CGFloat force() const { return objc::send<CGFloat, "force">(this); }
};

class NSSet : public objc::Interface<"NSSet", NSObject> {
 public:
  NSUInteger count() const { return objc::send<NSUInteger, "count">(this); }
  NSArray* allObjects() const { return objc::send<NSArray*, "allObjects">(this); }
};

class UIPressesEvent : public objc::Interface<"UIPressesEvent", NSObject> {
 public:
  NSSet* allPresses() const { return objc::send<NSSet*, "allPresses">(this); }
};
