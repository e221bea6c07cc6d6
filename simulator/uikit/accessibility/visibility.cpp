#include "simulator/uikit/accessibility/visibility.hpp"

#include <algorithm>
#include <vector>

#include "platform/ui_control.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

namespace {

constexpr double minVisibleAlpha = 0.01;

// The points of a rectangle that touchPointOf examines, in order, as fractions of the width and the height. Points in
// the lower part come last, because that part often contains controls.
constexpr CGPoint candidates[] = {{0.5, 0.5},   {0.5, 0.25}, {0.25, 0.5}, {0.75, 0.5},  {0.25, 0.25},
                                  {0.75, 0.25}, {0.5, 0.75}, {0.5, 0.1},  {0.25, 0.75}, {0.75, 0.75}};

// Returns the view and its superviews, from the window to the view.
std::vector<const UIView*> pathTo(const UIView* view) {
  std::vector<const UIView*> path;
  for (; view != nullptr; view = record(view).superview) path.push_back(view);
  std::ranges::reverse(path);
  return path;
}

std::size_t indexInSuperview(const UIView* view) {
  const auto& siblings = record(record(view).superview).subviews;
  const auto found = std::ranges::find(siblings, view, [](const auto& sibling) { return sibling.get(); });
  return static_cast<std::size_t>(found - siblings.begin());
}

std::size_t orderOf(const UIView* window) {
  const std::vector<UIWindow*> windows = visibleWindows();
  const auto found = std::ranges::find(windows, window, [](const UIWindow* each) -> const UIView* { return each; });
  return static_cast<std::size_t>(found - windows.begin());
}

// Returns whether the view `front` is displayed in front of the view `behind`. A view does not cover its superviews or
// its subviews.
bool covers(const UIView* front, const UIView* behind) {
  const std::vector<const UIView*> first = pathTo(front);
  const std::vector<const UIView*> second = pathTo(behind);
  if (first[0] != second[0]) return orderOf(first[0]) > orderOf(second[0]);
  const std::size_t common = std::min(first.size(), second.size());
  for (std::size_t depth = 1; depth < common; ++depth)
    if (first[depth] != second[depth]) return indexInSuperview(first[depth]) > indexInSuperview(second[depth]);
  return false;
}

UIView* touchedView(CGPoint point) {
  const std::vector<UIWindow*> windows = visibleWindows();
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    if (UIView* hit = objc::send<UIView*, "hitTest:withEvent:">(*window, convertPoint(point, nullptr, *window),
                                                                static_cast<NSObject*>(nullptr)))
      return hit;
  }
  return nullptr;
}

bool isInControlOf(const UIView* view, const UIView* touched) {
  for (; touched != nullptr && touched != view; touched = record(touched).superview)
    if (objc::as<UIControl>(touched) != nullptr) return true;
  return false;
}

bool isTouchable(const UIView* view, CGPoint point) {
  const UIView* touched = touchedView(point);
  return touched == nullptr || (!covers(touched, view) && !isInControlOf(view, touched));
}

}  // namespace

bool isVisible(const UIView* view) {
  const LayerRecord& layer = record(view).layer;
  return !layer.hidden && layer.opacity.model() >= minVisibleAlpha;
}

CGRect partOnScreen(const CGRect& rectangle) {
  const CGSize screen = environment().device.screen;
  const CGFloat left = std::max(rectangle.origin.x, 0.0);
  const CGFloat top = std::max(rectangle.origin.y, 0.0);
  const CGFloat right = std::min(rectangle.origin.x + rectangle.size.width, screen.width);
  const CGFloat bottom = std::min(rectangle.origin.y + rectangle.size.height, screen.height);
  return left < right && top < bottom ? CGRect{{left, top}, {right - left, bottom - top}} : CGRect{};
}

std::optional<CGPoint> touchPointOf(const UIView* view, const CGRect& rectangle) {
  if (rectangle.size.width <= 0 || rectangle.size.height <= 0) return std::nullopt;
  for (const CGPoint& fraction : candidates) {
    const CGPoint point = {rectangle.origin.x + fraction.x * rectangle.size.width,
                           rectangle.origin.y + fraction.y * rectangle.size.height};
    if (isTouchable(view, point)) return point;
  }
  return std::nullopt;
}

}  // namespace uikit
