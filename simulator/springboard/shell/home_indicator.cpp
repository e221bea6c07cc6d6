#include "simulator/springboard/shell/home_indicator.hpp"

#include <utility>

#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace springboard {

namespace {

constexpr drawing::Size barSize = {134, 5};
constexpr double barDistanceFromEdge = 8;
// The minimum upward distance of a swipe, in points.
constexpr CGFloat minSwipe = 40;

void draw(SBHomeIndicatorView* self, void* target) {
  const CGSize size = self->bounds().size;
  const bool isWhite = objc::state(self).color == IndicatorColor::White;
  drawing::Color color = isWhite ? drawing::Color{1, 1, 1} : uikit::colorOf(uikit::labelColor(uikit::styleOf(self)));
  color.alpha = 0.9;
  static_cast<drawing::Canvas*>(target)->fillRoundedRectangle(
      {(size.width - barSize.width) / 2, size.height - barDistanceFromEdge - barSize.height, barSize.width,
       barSize.height},
      {barSize.height / 2}, color);
}

void handlePan(SBHomeIndicatorView* self, UIPanGestureRecognizer* recognizer) {
  if (recognizer->state() != UIGestureRecognizerState::Ended) return;
  if (recognizer->translationInView(self).y > -minSwipe) return;
  // A copy, because the function can remove the view.
  const std::function<void()> swipedUp = objc::state(self).swipedUp;
  swipedUp();
}

void addAccessibleActions(SBHomeIndicatorView*, void* actions) {
  uikit::accessibleActionsAt(actions).push_back({"activate", {0, -3 * minSwipe}});
}

}  // namespace

void addHomeIndicator(UIView* view, IndicatorColor color, std::function<void()> swipedUp) {
  const CGFloat height = uikit::environment().device.safeArea.bottom;
  if (height <= 0) return;
  const CGSize size = view->bounds().size;
  auto indicator = UIView::withFrame<SBHomeIndicatorView>({{0, size.height - height}, {size.width, height}});
  objc::state(indicator.get()).color = color;
  view->addSubview(indicator);
  if (!swipedUp) return indicator->setUserInteractionEnabled(false);
  objc::state(indicator.get()).swipedUp = std::move(swipedUp);
  indicator->addGestureRecognizer(
      UIPanGestureRecognizer::withTarget(indicator, objc::selector<"_handlePanOnIndicator:">()));
  uikit::makeAccessible(indicator, uikit::AccessibilityTraitButton, "Home"_ns);
}

void defineHomeIndicator() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_drawContentInCanvas:", &draw>(),
      objc::method<"_handlePanOnIndicator:", &handlePan>(),
      objc::method<"_addAccessibleActions:", &addAccessibleActions>(),
  };
  objc::defineClassWithState<SBHomeIndicatorView>(methods);
}

}  // namespace springboard
