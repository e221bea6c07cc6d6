// UIWindow and UIApplication: the roots of what is shown.
#pragma once

#include "platform/ui_view.hpp"

class UIWindow : public objc::Interface<"UIWindow", UIView> {
 public:
  void makeKeyAndVisible() { objc::send<void, "makeKeyAndVisible">(this); }
};

class UIApplication : public objc::Interface<"UIApplication", UIResponder> {
 public:
  static UIApplication* sharedApplication() { return objc::send<UIApplication*, "sharedApplication">(classObject()); }
  // nil while no window has the keyboard.
  UIWindow* keyWindow() const { return objc::send<UIWindow*, "keyWindow">(this); }
  // Starts or wakes the application; suspended, it stays in the background.
  bool launchApplication(NSString* bundleIdentifier, bool suspended) {
    return objc::send<bool, "launchApplicationWithIdentifier:suspended:">(this, bundleIdentifier, suspended);
  }
};
