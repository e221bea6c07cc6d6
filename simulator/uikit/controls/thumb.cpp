#include "simulator/uikit/controls/thumb.hpp"

#include "simulator/uikit/views/view.hpp"

namespace uikit {

namespace {

constexpr CGFloat shadowReach = 5;
constexpr CGFloat shadowOffset = 1.5;
constexpr CGFloat shadowStep = 0.75;
constexpr int shadowCircles = 5;
constexpr drawing::Color shadow = {0, 0, 0, 0.022};
constexpr drawing::Color edge = {0, 0, 0, 0.06};
constexpr drawing::Color white = {1, 1, 1, 1};

void fillCircle(drawing::Canvas& canvas, const CGRect& bounds, const drawing::Color& color) {
  canvas.fillRoundedRectangle(rectangle(bounds), {bounds.size.width / 2}, color);
}

// Overlapping translucent circles form the shadow, so it is darkest next to the thumb.
void draw(UIThumbView* self, void* target) {
  auto& canvas = *static_cast<drawing::Canvas*>(target);
  const CGRect bounds = shownBounds(self);
  CGRect below = bounds;
  below.origin.y += shadowOffset;
  for (int circle = 0; circle < shadowCircles; ++circle)
    fillCircle(canvas, outset(below, shadowReach - shadowOffset - circle * shadowStep), shadow);
  fillCircle(canvas, outset(bounds, shadowStep / 2), edge);
  fillCircle(canvas, bounds, white);
}

CGRect contentArea(UIThumbView* self) { return outset(shownBounds(self), shadowReach); }

}  // namespace

objc::Ref<UIThumbView> makeThumb(CGFloat diameter) {
  auto thumb = UIView::withFrame<UIThumbView>({{}, {diameter, diameter}});
  thumb->setUserInteractionEnabled(false);
  return thumb;
}

void defineThumb() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_drawContentInCanvas:", &draw>(),
      objc::method<"_contentArea", &contentArea>(),
  };
  objc::defineClass<UIThumbView>(methods);
}

}  // namespace uikit
