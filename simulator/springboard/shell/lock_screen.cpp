#include "simulator/springboard/shell/lock_screen.hpp"

#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/springboard/shell/application_page.hpp"
#include "simulator/springboard/shell/notification_center.hpp"
#include "simulator/springboard/shell/status_bar.hpp"

namespace springboard {

namespace {

using LockScreen = SBLockScreenManager;
using Completion = objc::Block<void()>;

constexpr double openingSeconds = 0.3;

LockScreen* sharedInstance(Class self) {
  static LockScreen* const shared = objc::send<LockScreen*, "new">(reinterpret_cast<void*>(self));
  return shared;
}

// Moves the lock screen off the screen, and then unlocks the phone.
void openLockScreen() {
  const objc::Ref<SBCoverSheetController> sheet = objc::state(LockScreen::sharedInstance()).sheet;
  if (sheet == nullptr) return;
  const objc::Ref<UIWindow> window = objc::state(sheet.get()).window;
  window->setUserInteractionEnabled(false);
  const CGRect frame = window->frame();
  UIView::animate(openingSeconds, objc::block([window, frame] {
                    window->setFrame({{0, -frame.size.height}, frame.size});
                  }),
                  objc::block([sheet](bool) {
                    if (objc::state(LockScreen::sharedInstance()).sheet == sheet)
                      LockScreen::sharedInstance()->unlock();
                  }));
}

void activate(LockScreen* self, bool, NSObject*, bool, bool, bool, bool, Completion* completion) {
  dismissAllBanners();
  dismissLongLook(LongLookChange::Immediate);
  closeNotificationCenter(NotificationCenterChange::Immediate);
  LockScreenState& state = objc::state(self);
  if (state.sheet != nullptr) removeCoverSheet(state.sheet);
  state.sheet = makeCoverSheet(&openLockScreen);
  setStatusBarVisibility(StatusBarVisibility::Shown);
  objc::state(state.sheet.get()).window->setHidden(false);
  if (completion != nullptr) (*completion)();
}

bool isUILocked(LockScreen* self) { return objc::state(self).sheet != nullptr; }

void unlock(LockScreen* self, NSInteger, NSObject*) {
  LockScreenState& state = objc::state(self);
  if (state.sheet == nullptr) return;
  removeCoverSheet(state.sheet);
  setStatusBarVisibility(statusBarOfOpenPage());
  state = {};
}

}  // namespace

void defineLockScreen() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"sharedInstance", &sharedInstance>(),
      objc::method<"isUILocked", &isUILocked>(),
      objc::method<"unlockUIFromSource:withOptions:", &unlock>(),
      objc::method<"_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:"
                   "dismissNotificationCenter:completion:",
                   &activate>(),
  };
  objc::defineClassWithState<LockScreen>(methods);
}

}  // namespace springboard

void SBLockScreenManager::lock() {
  objc::send<void,
             "_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:"
             "dismissNotificationCenter:completion:">(this, true, static_cast<NSObject*>(nullptr), false, false, false,
                                                      true, static_cast<objc::Block<void()>*>(nullptr));
}
