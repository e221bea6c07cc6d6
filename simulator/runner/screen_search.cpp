#include "simulator/runner/screen_search.hpp"

#include <algorithm>
#include <functional>

#include "platform/ns_attributed_string.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/window.hpp"

namespace runner {

namespace {

constexpr CGFloat invisibleAlpha = 0.01;

bool isVisible(const UIView* view) { return !view->isHidden() && view->alpha() >= invisibleAlpha; }

std::string textShownBy(const UIView* view) {
  if (!respondsTo<"text">(view)) return "";
  return base::textOf(objc::as<NSString>(objc::send<NSObject*, "text">(view)));
}

using Visitor = std::function<bool(UIView*)>;

// Visits a view's subviews from front to back and then the view itself, in the order of hit testing. Skips invisible
// views. Stops and returns true when the visitor returns true.
bool visit(UIView* view, const Visitor& visitor) {
  if (!isVisible(view)) return false;
  const NSArray* subviews = view->subviews();
  for (NSUInteger index = subviews->count(); index > 0; --index)
    if (visit(static_cast<UIView*>(subviews->objectAtIndex(index - 1)), visitor)) return true;
  return visitor(view);
}

void visitScreen(const Visitor& visitor) {
  uikit::layoutWindows();
  const std::vector<UIWindow*> windows = uikit::visibleWindows();
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    if (visit(*window, visitor)) return;
}

}  // namespace

CGRect frameOnScreen(const UIView* view) {
  uikit::layoutWindows();
  return uikit::frameOnScreen(view);
}

CGRect presentedFrameOnScreen(const UIView* view) {
  uikit::layoutWindows();
  return uikit::presentedFrameOnScreen(view);
}

std::optional<CGPoint> middleOnScreen(const CGRect& rectangle) {
  const CGSize screen = uikit::environment().device.screen;
  const CGFloat left = std::max(rectangle.origin.x, 0.0);
  const CGFloat top = std::max(rectangle.origin.y, 0.0);
  const CGFloat right = std::min(rectangle.origin.x + rectangle.size.width, screen.width);
  const CGFloat bottom = std::min(rectangle.origin.y + rectangle.size.height, screen.height);
  if (left >= right || top >= bottom) return std::nullopt;
  return CGPoint{(left + right) / 2, (top + bottom) / 2};
}

bool isOnScreen(CGPoint point) {
  const CGSize screen = uikit::environment().device.screen;
  return point.x >= 0 && point.y >= 0 && point.x < screen.width && point.y < screen.height;
}

UIView* viewWithText(const std::string& text) {
  UIView* found = nullptr;
  visitScreen([&](UIView* view) {
    if (textShownBy(view) == text) found = view;
    return found != nullptr;
  });
  return found;
}

std::vector<std::string> readableTexts() {
  std::vector<std::string> texts;
  visitScreen([&](const UIView* view) {
    if (std::string text = textShownBy(view); !text.empty()) texts.push_back(std::move(text));
    return false;
  });
  return texts;
}

}  // namespace runner
