// UIDevice and UIScreen: what the process runs on.
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

// Versions compare by their numbers: 9.3 comes before 12.0.
inline bool systemVersionIsBelow(NSString* version) {
  return UIDevice::currentDevice()->systemVersion()->compare(version, NSStringCompareOptions::Numeric) ==
         NSComparisonResult::Ascending;
}
