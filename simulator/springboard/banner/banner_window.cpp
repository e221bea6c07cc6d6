#include "simulator/springboard/banner/banner_window.hpp"

#include "objc/class_definition.hpp"
#include "simulator/springboard/banner/long_look_presentation.hpp"
#include "simulator/springboard/platter/touch_pass_through.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

constexpr CGFloat sideMargin = 8;
constexpr CGFloat topMargin = 8;
// The vertical distance between the resting and the hidden frame, in points. It exceeds the height of every banner.
constexpr CGFloat slideDistance = 220;
constexpr double levelAboveStatusBar = 1050;

struct BannerWindowState {
  objc::Ref<SBNotificationBannerWindow> window;
  objc::Ref<SBFTouchPassThroughView> container;
  objc::Ref<UIWindow> homeWindow;
};

BannerWindowState& bannerWindow() {
  static BannerWindowState& state = *new BannerWindowState;
  return state;
}

// Returns whether a long look is open in the window, because only its reply field needs the keyboard.
bool canBecomeKeyWindow(SBNotificationBannerWindow* self) {
  const auto* shortLook = longLookPresentation().openedShortLook();
  return shortLook != nullptr && shortLook->view()->window() == self;
}

}  // namespace

CGRect restingBannerFrame() {
  const base::DeviceProfile& device = uikit::environment().device;
  const CGFloat top = device.safeArea.bottom > 0 ? device.safeArea.top : topMargin;
  return {{sideMargin, top}, {device.screen.width - 2 * sideMargin, device.screen.height - top}};
}

CGRect hiddenBannerFrame() {
  CGRect frame = restingBannerFrame();
  frame.origin.y -= slideDistance;
  return frame;
}

void addToBannerWindow(UIView* notificationView) {
  bannerWindow().window->setHidden(false);
  bannerWindow().container->addSubview(notificationView);
}

void hideWindowAboveHomeScreen(UIWindow* window) {
  const bool wasKeyWindow = UIApplication::sharedApplication()->keyWindow() == window;
  window->setHidden(true);
  if (wasKeyWindow) bannerWindow().homeWindow->makeKeyAndVisible();
}

void hideBannerWindowIfEmpty() {
  const BannerWindowState& state = bannerWindow();
  if (state.container->subviews()->count() == 0) hideWindowAboveHomeScreen(state.window);
}

void defineBannerWindow() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_canBecomeKeyWindow", &canBecomeKeyWindow>(),
      objc::method<"pointInside:withEvent:", &isInsideSubview>(),
  };
  objc::defineClass<SBNotificationBannerWindow>(methods);
}

void setHomeWindow(UIWindow* window) { bannerWindow().homeWindow = objc::retain(window); }

void makeBannerWindow() {
  const CGRect screen = {{}, uikit::environment().device.screen};
  BannerWindowState& state = bannerWindow();
  state.window = UIView::withFrame<SBNotificationBannerWindow>(screen);
  state.container = UIView::withFrame<SBFTouchPassThroughView>(screen);
  objc::send<void, "setWindowLevel:">(state.window.get(), CGFloat{levelAboveStatusBar});
  state.window->addSubview(state.container);
}

}  // namespace springboard
