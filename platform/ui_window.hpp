// UIWindow and UIApplication: a window is the root of a view hierarchy; the application is the last element of the
// responder chain.
#pragma once

#include "platform/ui_view.hpp"

class UIWindow : public objc::Interface<"UIWindow", UIView> {
 public:
  void makeKeyAndVisible() { objc::send<void, "makeKeyAndVisible">(this); }
};

class UIApplication : public objc::Interface<"UIApplication", UIResponder> {
 public:
  static UIApplication* sharedApplication() { return objc::send<UIApplication*, "sharedApplication">(classObject()); }
  // The window that receives keyboard input; nil if there is no such window.
  UIWindow* keyWindow() const { return objc::send<UIWindow*, "keyWindow">(this); }
  // Launches or resumes the application. If `suspended` is true, the application stays in the background. Returns
  // whether the application could be launched.
  bool launchApplication(NSString* bundleIdentifier, bool suspended) {
    return objc::sendIfAvailable<bool, "launchApplicationWithIdentifier:suspended:">(this, bundleIdentifier, suspended);
  }
};
