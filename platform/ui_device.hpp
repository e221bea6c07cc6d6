// UIDevice and UIScreen: the device and its screen. Main thread only.
#pragma once

#include "platform/ns_string.hpp"
#include "platform/ui_trait_collection.hpp"

class UIDevice : public objc::Interface<"UIDevice", NSObject> {
 public:
  static UIDevice* currentDevice() { return objc::send<UIDevice*, "currentDevice">(classObject()); }
  NSString* systemVersion() const { return objc::send<NSString*, "systemVersion">(this); }
};

class UIScreen : public objc::Interface<"UIScreen", NSObject> {
 public:
  static UIScreen* mainScreen() { return objc::send<UIScreen*, "mainScreen">(classObject()); }
  UITraitCollection* traitCollection() const { return objc::send<UITraitCollection*, "traitCollection">(this); }
};

// Returns whether the system is older than the given version. The parts of a version are compared as numbers: 9.3 is
// below 12.0.
inline bool systemVersionIsBelow(NSString* version) {
  return UIDevice::currentDevice()->systemVersion()->compare(version, NSStringCompareOptions::Numeric) ==
         NSComparisonResult::Ascending;
}
