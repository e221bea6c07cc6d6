#include "simulator/springboard/shell/home_screen.hpp"

#include <algorithm>
#include <span>
#include <string>

#include "platform/ui_visual_effect_view.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/springboard/shell/icon_label.hpp"
#include "simulator/springboard/shell/wallpaper_view.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

using Applications = std::span<const std::string>;

constexpr std::size_t columns = 4;
constexpr CGFloat iconSide = 60;
constexpr CGFloat iconCornerRadius = 13.5;
constexpr CGFloat labelHeight = 16;
constexpr CGFloat labelGap = 5;
constexpr CGFloat sideMargin = 27;
constexpr CGFloat gridTop = 28;
constexpr CGFloat rowPitch = 96;
constexpr CGFloat dockHeight = 92;
constexpr CGFloat dockMargin = 11;
constexpr CGFloat dockCornerRadius = 30;

void addLabel(UIView* parent, const std::string& name, CGRect icon) {
  constexpr CGFloat overhang = 10;
  parent->addSubview(makeIconLabel(
      name, {{icon.origin.x - overhang, icon.origin.y + iconSide + labelGap}, {iconSide + 2 * overhang, labelHeight}}));
}

void addIcon(UIView* parent, const std::string& application, CGRect frame) {
  auto icon = UIView::withFrame<UIImageView>(frame);
  icon->setImage(iconOf(base::stringOf(application)));
  icon->layer()->setCornerRadius(iconCornerRadius);
  icon->layer()->setContinuousCorners(true);
  icon->setClipsToBounds(true);
  parent->addSubview(icon);
}

// Returns the left edge of the icon at this index. The order of the columns follows the layout direction of the locale.
CGFloat columnLeft(std::size_t index, CGFloat width, CGFloat margin) {
  std::size_t column = index % columns;
  if (uikit::environment().direction == uikit::LayoutDirection::RightToLeft) column = columns - 1 - column;
  const CGFloat gap = (width - 2 * margin - columns * iconSide) / (columns - 1);
  return margin + static_cast<CGFloat>(column) * (iconSide + gap);
}

void addGrid(UIView* view, Applications applications, CGFloat top) {
  for (std::size_t index = 0; index < applications.size(); ++index) {
    const std::size_t row = index / columns;
    const CGRect frame = {
        {columnLeft(index, view->bounds().size.width, sideMargin), top + static_cast<CGFloat>(row) * rowPitch},
        {iconSide, iconSide}};
    addIcon(view, applications[index], frame);
    addLabel(view, nameOf(applications[index]), frame);
  }
}

// Adds the dock. It is a rounded tray on devices with a home indicator and has the full width on other devices.
void addDock(UIView* view, Applications applications) {
  const bool rounded = uikit::environment().device.safeArea.bottom > 0;
  const CGFloat margin = rounded ? dockMargin : 0;
  const CGSize screen = view->bounds().size;
  auto dock = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Light));
  dock->setFrame({{margin, screen.height - dockHeight - margin}, {screen.width - 2 * margin, dockHeight}});
  dock->layer()->setCornerRadius(rounded ? dockCornerRadius : 0);
  dock->layer()->setContinuousCorners(true);
  dock->setClipsToBounds(true);
  view->addSubview(dock);
  const CGFloat top = dock->frame().origin.y + (dockHeight - iconSide) / 2;
  for (std::size_t index = 0; index < applications.size(); ++index) {
    const CGRect frame = {{columnLeft(index, screen.width, sideMargin), top}, {iconSide, iconSide}};
    addIcon(view, applications[index], frame);
  }
}

void loadView(SBHomeScreenViewController* self) {
  const base::DeviceProfile& device = uikit::environment().device;
  auto view = UIView::withFrame<UIView>({{}, device.screen});
  view->addSubview(makeWallpaperView());

  const Applications all = installedApplications();
  const std::size_t inDock = std::min(all.size(), columns);
  addGrid(view, all.first(all.size() - inDock), device.safeArea.top + gridTop);
  addDock(view, all.last(inDock));
  objc::send<void, "setView:">(self, view.get());
}

void viewDidLoad(SBHomeScreenViewController* self) {
  objc::sendSuper<"SBHomeScreenViewController", void, "viewDidLoad">(self);
}

}  // namespace

void defineHomeScreen() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"loadView", &loadView>(),
      objc::method<"viewDidLoad", &viewDidLoad>(),
  };
  objc::defineClass<SBHomeScreenViewController>(methods);
}

}  // namespace springboard
