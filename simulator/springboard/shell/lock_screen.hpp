// The lock screen: a cover sheet above the home screen. Main thread.
#pragma once

#include "objc/class_definition.hpp"
#include "simulator/springboard/shell/cover_sheet.hpp"

struct LockScreenState {
  objc::Ref<SBCoverSheetController> sheet;  // nil while the phone is unlocked
};

class SBLockScreenManager : public objc::Interface<"SBLockScreenManager", NSObject> {
 public:
  static SBLockScreenManager* sharedInstance() {
    return objc::send<SBLockScreenManager*, "sharedInstance">(classObject());
  }
  bool isUILocked() const { return objc::send<bool, "isUILocked">(this); }
  // Dismisses all banners and shows the lock screen.
  void lock();
  // Hides the lock screen. Does nothing if the phone is unlocked.
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
