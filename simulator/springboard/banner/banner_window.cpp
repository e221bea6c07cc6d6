#include "simulator/springboard/banner/banner_window.hpp"

#include "objc/class_definition.hpp"
#include "simulator/springboard/banner/long_look_presentation.hpp"
#include "simulator/springboard/platter/touch_pass_through.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

constexpr CGFloat sideMargin = 8;
constexpr CGFloat topMargin = 8;
// How far above its place a banner waits: far enough for any to be out of sight.
constexpr CGFloat slideDistance = 220;
constexpr double levelAboveStatusBar = 1050;

struct BannerWindow {
  objc::Ref<SBNotificationBannerWindow> window;
  objc::Ref<SBFTouchPassThroughView> container;
  objc::Ref<UIWindow> homeWindow;
};

BannerWindow& bannerWindow() {
  static BannerWindow& made = *new BannerWindow;
  return made;
}

// The keyboard is for what is typed into a long look.
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

void hideAboveHomeScreen(UIWindow* window) {
  const bool hadKeyboard = UIApplication::sharedApplication()->keyWindow() == window;
  window->setHidden(true);
  if (hadKeyboard) bannerWindow().homeWindow->makeKeyAndVisible();
}

void bannerHasLeftWindow() {
  const BannerWindow& made = bannerWindow();
  if (made.container->subviews()->count() == 0) hideAboveHomeScreen(made.window);
}

void defineBannerWindow() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_canBecomeKeyWindow", &canBecomeKeyWindow>(),
      objc::method<"pointInside:withEvent:", &isInsideSubview>(),
  };
  objc::defineClass<SBNotificationBannerWindow>(methods);
}

void makeBannerWindow(UIWindow* homeWindow) {
  const CGRect screen = {{}, uikit::environment().device.screen};
  BannerWindow& made = bannerWindow();
  made.homeWindow = objc::retain(homeWindow);
  made.window = UIView::withFrame<SBNotificationBannerWindow>(screen);
  made.container = UIView::withFrame<SBFTouchPassThroughView>(screen);
  objc::send<void, "setWindowLevel:">(made.window.get(), CGFloat{levelAboveStatusBar});
  made.window->addSubview(made.container);
}

}  // namespace springboard
