// The lock screen: a window above the home screen that shows the time and the notification list. Main thread.
#pragma once

#include "platform/ui_label.hpp"
#include "platform/ui_window.hpp"
#include "simulator/springboard/list/notification_list_view.hpp"

struct LockScreenState {
  objc::Ref<UIWindow> window;
  objc::Ref<UILabel> clock;
  objc::Ref<UILabel> day;
  objc::Ref<NCNotificationListView> list;
  std::size_t listObserver = 0;  // the number of the observer of the dispatcher's list; 0 if there is none
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
  // Updates the time and the list. Does nothing if the phone is unlocked.
  void refresh();

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
