#include "simulator/springboard/lock_screen.hpp"

#include "platform/ui_image_view.hpp"
#include "simulator/springboard/banner_presenter.hpp"
#include "simulator/springboard/home_screen.hpp"
#include "simulator/springboard/status_bar.hpp"
#include "simulator/uikit/environment.hpp"

namespace springboard {

namespace {

using LockScreen = SBLockScreenManager;
using Completion = objc::Block<void()>;

// Above the home screen, below the status bar.
constexpr double lockScreenLevel = 900;

LockScreen* sharedInstance(Class self) {
  static LockScreen* const shared = objc::send<LockScreen*, "new">(reinterpret_cast<void*>(self));
  return shared;
}

objc::Ref<UILabel> makeClock(const host::DeviceProfile& device) {
  auto clock = UIView::withFrame<UILabel>({{0, device.safeArea.top + 50}, {device.screen.width, 90}});
  clock->setFont(UIFont::systemFontOfSize(76));
  clock->setTextColor(UIColor::withRed(1, 1, 1, 1));
  clock->setTextAlignment(NSTextAlignment::Center);
  return clock;
}

void makeWindow(LockScreenState& state) {
  const host::DeviceProfile& device = uikit::environment().device;
  const CGRect screen = {{}, device.screen};
  state.window = UIView::withFrame<UIWindow>(screen);
  objc::send<void, "setWindowLevel:">(state.window.get(), CGFloat{lockScreenLevel});
  auto picture = UIView::withFrame<UIImageView>(screen);
  picture->setContentMode(UIViewContentMode::ScaleAspectFill);
  picture->setImage(wallpaper());
  state.window->addSubview(picture);
  state.clock = makeClock(device);
  state.window->addSubview(state.clock);
}

// Banners go when the screen locks.
void activate(LockScreen* self, bool, NSObject*, bool, bool, bool, bool, Completion* completion) {
  dismissAllBanners();
  LockScreenState& state = objc::state(self);
  makeWindow(state);
  state.clock->setText(timeOfDay());
  state.window->setHidden(false);
  if (completion != nullptr) (*completion)();
}

bool isUILocked(LockScreen* self) { return objc::state(self).window != nullptr; }

void unlock(LockScreen* self, NSInteger, NSObject*) {
  LockScreenState& state = objc::state(self);
  if (state.window != nullptr) state.window->setHidden(true);
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
