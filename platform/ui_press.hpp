// UIPress and UIPressesEvent: the press or release of a physical button. `type` identifies the button: 101 is the home
// button. `force` is 0 when the button is released. Main thread only.
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
