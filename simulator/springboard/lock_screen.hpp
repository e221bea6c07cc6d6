// The lock screen: a window with the time above the home screen, and the object that brings it up.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_window.hpp"

struct LockScreenState {
  objc::Ref<UIWindow> window;
  objc::Ref<UILabel> clock;
};

class SBLockScreenManager : public objc::Interface<"SBLockScreenManager", NSObject> {
 public:
  static SBLockScreenManager* sharedInstance() {
    return objc::send<SBLockScreenManager*, "sharedInstance">(classObject());
  }
  bool isUILocked() const { return objc::send<bool, "isUILocked">(this); }
  // Brings the lock screen up.
  void lock();
  void unlock() { objc::send<void, "unlockUIFromSource:withOptions:">(this, NSInteger{0}, noOptions()); }

 private:
  static NSObject* noOptions() { return nullptr; }
};
template <>
struct objc::StateOf<SBLockScreenManager> {
  using Type = LockScreenState;
};

namespace springboard {

void defineLockScreen();

}  // namespace springboard
