#include "simulator/springboard/shell/home_screen.hpp"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "platform/ui_visual_effect_view.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/springboard/shell/application_page.hpp"
#include "simulator/springboard/shell/icon_label.hpp"
#include "simulator/springboard/shell/wallpaper_view.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
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

// An application's icon on the home screen.
struct PlacedIcon {
  std::string application;
  CGRect frame;
};

void addLabel(UIView* parent, const std::string& name, CGRect icon) {
  constexpr CGFloat overhang = 10;
  parent->addSubview(makeIconLabel(
      name, {{icon.origin.x - overhang, icon.origin.y + iconSide + labelGap}, {iconSide + 2 * overhang, labelHeight}}));
}

void addIcon(UIView* parent, const PlacedIcon& placed) {
  auto icon = UIView::withFrame<UIImageView>(placed.frame);
  icon->setImage(iconOf(base::stringOf(placed.application)));
  icon->layer()->setCornerRadius(iconCornerRadius);
  icon->layer()->setContinuousCorners(true);
  icon->setClipsToBounds(true);
  uikit::makeAccessible(icon, uikit::AccessibilityTraitImage, base::stringOf(nameOf(placed.application)));
  parent->addSubview(icon);
}

// Returns the left edge of the icon at this index. The order of the columns follows the layout direction of the locale.
CGFloat columnLeft(std::size_t index) {
  std::size_t column = index % columns;
  if (uikit::environment().direction == uikit::LayoutDirection::RightToLeft) column = columns - 1 - column;
  const CGFloat width = uikit::environment().device.screen.width;
  const CGFloat gap = (width - 2 * sideMargin - columns * iconSide) / (columns - 1);
  return sideMargin + static_cast<CGFloat>(column) * (iconSide + gap);
}

// The dock is a rounded tray on devices with a home indicator. On other devices, it has the full width.
bool hasRoundedDock() { return uikit::environment().device.safeArea.bottom > 0; }

CGRect dockFrame() {
  const CGFloat margin = hasRoundedDock() ? dockMargin : 0;
  const CGSize screen = uikit::environment().device.screen;
  return {{margin, screen.height - dockHeight - margin}, {screen.width - 2 * margin, dockHeight}};
}

// The icons of the applications in the dock are the last ones.
Applications dockApplications() {
  const Applications all = installedApplications();
  return all.last(std::min(all.size(), columns));
}

std::vector<PlacedIcon> gridIcons() {
  const Applications all = installedApplications();
  const CGFloat top = uikit::environment().device.safeArea.top + gridTop;
  std::vector<PlacedIcon> icons;
  for (std::size_t index = 0; index < all.size() - dockApplications().size(); ++index) {
    const std::size_t row = index / columns;
    icons.push_back(
        {all[index], {{columnLeft(index), top + static_cast<CGFloat>(row) * rowPitch}, {iconSide, iconSide}}});
  }
  return icons;
}

std::vector<PlacedIcon> dockIcons() {
  const CGFloat top = dockFrame().origin.y + (dockHeight - iconSide) / 2;
  std::vector<PlacedIcon> icons;
  for (std::size_t index = 0; index < dockApplications().size(); ++index)
    icons.push_back({dockApplications()[index], {{columnLeft(index), top}, {iconSide, iconSide}}});
  return icons;
}

void addGrid(UIView* view) {
  for (const PlacedIcon& icon : gridIcons()) {
    addIcon(view, icon);
    addLabel(view, nameOf(icon.application), icon.frame);
  }
}

void addDock(UIView* view) {
  auto dock = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Light));
  dock->setFrame(dockFrame());
  dock->layer()->setCornerRadius(hasRoundedDock() ? dockCornerRadius : 0);
  dock->layer()->setContinuousCorners(true);
  dock->setClipsToBounds(true);
  view->addSubview(dock);
  for (const PlacedIcon& icon : dockIcons()) addIcon(view, icon);
}

bool contains(const CGRect& frame, CGPoint point) {
  return point.x >= frame.origin.x && point.x < frame.origin.x + frame.size.width && point.y >= frame.origin.y &&
         point.y < frame.origin.y + frame.size.height;
}

void openTappedIcon(SBHomeScreenViewController* self, UITapGestureRecognizer* recognizer) {
  if (recognizer->state() != UIGestureRecognizerState::Ended) return;
  const auto point = objc::send<CGPoint, "locationInView:">(recognizer, self->view());
  for (const auto& icons : {gridIcons(), dockIcons()})
    for (const PlacedIcon& icon : icons)
      if (contains(icon.frame, point)) return openApplicationPage(icon.application, icon.frame);
}

void loadView(SBHomeScreenViewController* self) {
  auto view = UIView::withFrame<UIView>({{}, uikit::environment().device.screen});
  view->addSubview(makeWallpaperView());
  addGrid(view);
  addDock(view);
  view->addGestureRecognizer(UITapGestureRecognizer::withTarget(self, objc::selector<"_openTappedIcon:">()));
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
      objc::method<"_openTappedIcon:", &openTappedIcon>(),
  };
  objc::defineClass<SBHomeScreenViewController>(methods);
}

}  // namespace springboard
