#include "simulator/springboard/shell/status_bar.hpp"

#include "simulator/drawing/canvas.hpp"
#include "simulator/springboard/shell/clocks.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/views/view.hpp"

// A view that shows a white full-battery symbol.
class UIStatusBarBatteryView : public objc::Interface<"UIStatusBarBatteryView", UIView> {};

namespace springboard {

namespace {

constexpr CGSize batterySize = {27, 12};
constexpr double statusBarLevel = 1000;

UIStatusBarWindow* statusBar = nullptr;

UIColor* white() { return UIColor::withRed(1, 1, 1, 1); }

bool hasNotch() { return uikit::environment().device.safeArea.bottom > 0; }

void drawBattery(UIView*, void* target) {
  drawing::Canvas& canvas = *static_cast<drawing::Canvas*>(target);
  const drawing::Color line = {1, 1, 1, 0.4};
  const drawing::Color fill = {1, 1, 1, 1};
  canvas.fillRoundedRectangle({0, 0, 24, 12}, {3.5, drawing::CornerCurve::Continuous}, line);
  canvas.fillRoundedRectangle({25, 4, 1.5, 4}, {0.75}, line);
  canvas.fillRoundedRectangle({2, 2, 20, 8}, {2, drawing::CornerCurve::Continuous}, fill);
}

// Creates the clock. The clock is to the left of the notch. Without a notch, it is in the center of the bar.
objc::Ref<UILabel> makeClock(CGFloat width) {
  const CGRect frame = hasNotch() ? CGRect{{20, 14}, {54, 20}} : CGRect{{width / 2 - 30, 1}, {60, 18}};
  auto clock = UIView::withFrame<UILabel>(frame);
  clock->setFont(UIFont::boldSystemFontOfSize(hasNotch() ? 16 : 12));
  clock->setTextColor(white());
  clock->setTextAlignment(NSTextAlignment::Center);
  return clock;
}

objc::Ref<UIStatusBarBatteryView> makeBattery(CGFloat width) {
  const CGPoint origin = hasNotch() ? CGPoint{width - 48, 18} : CGPoint{width - batterySize.width - 6, 4};
  return UIView::withFrame<UIStatusBarBatteryView>({origin, batterySize});
}

UIStatusBarWindow* initWithFrame(UIStatusBarWindow* self, CGRect frame) {
  self = objc::sendSuper<"UIStatusBarWindow", UIStatusBarWindow*, "initWithFrame:">(self, frame);
  if (self == nullptr) return nullptr;
  objc::state(self).clock = makeClock(frame.size.width);
  self->addSubview(objc::state(self).clock);
  self->addSubview(makeBattery(frame.size.width));
  return self;
}

}  // namespace

void refreshStatusBar() {
  UILabel* clock = objc::state(statusBar).clock;
  clock->setText(currentTime());
}

void setStatusBarVisibility(StatusBarVisibility visibility) {
  statusBar->setAlpha(visibility == StatusBarVisibility::Shown ? 1 : 0);
}

UIStatusBarWindow* makeStatusBar() {
  const base::DeviceProfile& device = uikit::environment().device;
  statusBar = UIView::withFrame<UIStatusBarWindow>({{}, {device.screen.width, device.safeArea.top}}).leak();
  objc::send<void, "setWindowLevel:">(statusBar, CGFloat{statusBarLevel});
  statusBar->setHidden(false);
  refreshStatusBar();
  return statusBar;
}

void defineStatusBar() {
  static constexpr objc::MethodEntry battery[] = {
      objc::method<"_drawContentInCanvas:", &drawBattery>(),
  };
  static constexpr objc::MethodEntry window[] = {objc::method<"initWithFrame:", &initWithFrame>()};
  objc::defineClass<UIStatusBarBatteryView>(battery);
  objc::defineClassWithState<UIStatusBarWindow>(window);
}

}  // namespace springboard
