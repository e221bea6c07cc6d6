#include "simulator/springboard/shell/lock_screen.hpp"

#include <utility>

#include "platform/ui_device.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "simulator/springboard/shell/clocks.hpp"
#include "simulator/springboard/shell/home_indicator.hpp"
#include "simulator/springboard/shell/wallpaper_view.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

using LockScreen = SBLockScreenManager;
using Completion = objc::Block<void()>;

// The window level of the lock screen. It is between the levels of the home screen and the status bar.
constexpr double lockScreenLevel = 900;

constexpr double openingSeconds = 0.3;

constexpr CGFloat clockTop = 40;
constexpr CGFloat clockHeight = 90;
constexpr CGFloat dayHeight = 26;
constexpr CGFloat listGap = 28;

LockScreen* sharedInstance(Class self) {
  static LockScreen* const shared = objc::send<LockScreen*, "new">(reinterpret_cast<void*>(self));
  return shared;
}

// Adds a centered label that is as wide as the window.
objc::Ref<UILabel> addLabel(UIWindow* window, CGFloat fontSize, CGFloat top, CGFloat height) {
  auto label = UIView::withFrame<UILabel>({{0, top}, {window->bounds().size.width, height}});
  label->setFont(UIFont::systemFontOfSize(fontSize));
  label->setTextColor(UIColor::withRed(1, 1, 1, 1));
  label->setTextAlignment(NSTextAlignment::Center);
  window->addSubview(label);
  return label;
}

// Moves the lock screen off the screen, and then unlocks the phone.
void openLockScreen() {
  const objc::Ref<UIWindow> window = objc::state(LockScreen::sharedInstance()).window;
  if (window == nullptr) return;
  window->setUserInteractionEnabled(false);
  const CGRect frame = window->frame();
  UIView::animate(openingSeconds, objc::block([window, frame] {
                    window->setFrame({{0, -frame.size.height}, frame.size});
                  }),
                  objc::block([window](bool) {
                    if (objc::state(LockScreen::sharedInstance()).window == window)
                      LockScreen::sharedInstance()->unlock();
                  }));
}

void makeWindow(LockScreenState& state) {
  const base::DeviceProfile& device = uikit::environment().device;
  const CGRect screen = {{}, device.screen};
  state.window = UIView::withFrame<UIWindow>(screen);
  objc::send<void, "setWindowLevel:">(state.window.get(), CGFloat{lockScreenLevel});
  state.window->addSubview(makeWallpaperView());
  const CGFloat top = device.safeArea.top + clockTop;
  state.clock = addLabel(state.window, 76, top, clockHeight);
  state.day = addLabel(state.window, 20, top + clockHeight, dayHeight);
  const CGFloat listTop = top + clockHeight + dayHeight + listGap;
  state.list =
      UIView::withFrame<NCNotificationListView>({{0, listTop}, {screen.size.width, screen.size.height - listTop}});
  state.window->addSubview(state.list);
  addHomeIndicator(state.window, &openLockScreen);
}

Grouping groupingOfSystem() { return systemVersionIsBelow("12.0"_ns) ? Grouping::None : Grouping::ByConversation; }

// Schedules a refresh after all work that is due. Several changes then cause only one refresh, and no caller of the
// list is using a cell during the refresh.
void scheduleRefresh() {
  static bool isPending = false;
  if (std::exchange(isPending, true)) return;
  foundation::onMainThread([] {
    isPending = false;
    LockScreen::sharedInstance()->refresh();
  });
}

void activate(LockScreen* self, bool, NSObject*, bool, bool, bool, bool, Completion* completion) {
  dismissAllBanners();
  dismissLongLook(LongLookChange::Immediate);
  LockScreenState& state = objc::state(self);
  if (state.window != nullptr) hideWindowAboveHomeScreen(state.window);
  NCNotificationDispatcher::shared()->stopObservingList(state.listObserver);
  makeWindow(state);
  state.listObserver = NCNotificationDispatcher::shared()->observeList(&scheduleRefresh);
  self->refresh();
  state.window->setHidden(false);
  if (completion != nullptr) (*completion)();
}

bool isUILocked(LockScreen* self) { return objc::state(self).window != nullptr; }

void unlock(LockScreen* self, NSInteger, NSObject*) {
  LockScreenState& state = objc::state(self);
  if (state.window == nullptr) return;
  dismissLongLook(LongLookChange::Immediate);
  NCNotificationDispatcher::shared()->stopObservingList(state.listObserver);
  hideWindowAboveHomeScreen(state.window);
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

void SBLockScreenManager::refresh() {
  const LockScreenState& state = objc::state(this);
  if (state.window == nullptr) return;
  state.clock->setText(springboard::currentTime());
  state.day->setText(springboard::currentDay());
  springboard::showGroups(state.list,
                          NCNotificationDispatcher::shared()->list().groups(springboard::groupingOfSystem()));
}
