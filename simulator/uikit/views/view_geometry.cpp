#include "simulator/uikit/views/view_geometry.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/uikit/layout/view_layout.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

AxisMask horizontalMask(NSUInteger mask) {
  return {(mask & FlexibleLeftMargin) != 0, (mask & FlexibleWidth) != 0, (mask & FlexibleRightMargin) != 0};
}

AxisMask verticalMask(NSUInteger mask) {
  return {(mask & FlexibleTopMargin) != 0, (mask & FlexibleHeight) != 0, (mask & FlexibleBottomMargin) != 0};
}

AutoresizingFractions autoresizingFractions(const AxisMask& mask, double position, double length,
                                            double superviewLength) {
  const double before = mask.before ? position : 0;
  const double middle = mask.length ? length : 0;
  const double after = mask.after ? superviewLength - position - length : 0;
  const double total = before + middle + after;
  // If all flexible parts have length 0, they grow by equal amounts.
  if (total == 0) {
    const int parts = mask.before + mask.length + mask.after;
    const double share = parts == 0 ? 0 : 1.0 / parts;
    return {mask.before ? share : 0, mask.length ? share : 0};
  }
  return {before / total, middle / total};
}

namespace {

bool isFinite(const CGRect& rect) {
  return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
         std::isfinite(rect.size.height);
}

// Returns the same rectangle with a width and height that are not negative.
CGRect standardized(CGRect rect) {
  if (rect.size.width < 0)
    rect = {{rect.origin.x + rect.size.width, rect.origin.y}, {-rect.size.width, rect.size.height}};
  if (rect.size.height < 0)
    rect = {{rect.origin.x, rect.origin.y + rect.size.height}, {rect.size.width, -rect.size.height}};
  return rect;
}

void autoresizeSubviews(UIView* view, CGSize before);

void boundsSizeChanged(UIView* view, CGSize before) {
  markNeedsLayout(view);
  if (record(view).engine != nullptr) invalidateConstraints(view);
  autoresizeSubviews(view, before);
}

}  // namespace

void setFrameFromLayout(UIView* view, const CGRect& frame) {
  LayerRecord& layer = record(view).layer;
  const CGRect bounds = layer.bounds.model();
  layer.origin.set(frame.origin);
  layer.bounds.set({bounds.origin, frame.size});
  if (bounds.size != frame.size) boundsSizeChanged(view, bounds.size);
  noteDisplayChange();
}

namespace {

void autoresizeSubviews(UIView* view, CGSize before) {
  const CGSize after = record(view).layer.bounds.model().size;
  for (const objc::Ref<UIView>& subview : record(view).subviews) {
    const ViewRecord& state = record(subview.get());
    if (state.autoresizingMask == 0 || !state.translatesAutoresizingMask) continue;
    CGRect frame = modelFrame(state.layer);
    const AutoresizingFractions across =
        autoresizingFractions(horizontalMask(state.autoresizingMask), frame.origin.x, frame.size.width, before.width);
    const AutoresizingFractions down =
        autoresizingFractions(verticalMask(state.autoresizingMask), frame.origin.y, frame.size.height, before.height);
    frame.origin.x += across.position * (after.width - before.width);
    frame.size.width += across.length * (after.width - before.width);
    frame.origin.y += down.position * (after.height - before.height);
    frame.size.height += down.length * (after.height - before.height);
    setFrameFromLayout(subview.get(), frame);
  }
}

}  // namespace

void setFrame(UIView* view, const CGRect& frame) {
  if (!isFinite(frame)) return;
  const CGRect wanted = standardized(frame);
  if (wanted == modelFrame(record(view).layer)) return;
  setFrameFromLayout(view, wanted);
  invalidateConstraints(view);
}

void setBounds(UIView* view, const CGRect& bounds) {
  LayerRecord& layer = record(view).layer;
  const CGRect before = layer.bounds.model();
  if (!isFinite(bounds) || bounds == before) return;
  // Changes the origin, because setting the bounds must not move the center.
  const CGPoint origin = layer.origin.model();
  layer.origin.set({origin.x + (before.size.width - bounds.size.width) / 2,
                    origin.y + (before.size.height - bounds.size.height) / 2});
  layer.bounds.set(bounds);
  if (before.size != bounds.size) boundsSizeChanged(view, before.size);
  noteDisplayChange();
  invalidateConstraints(view);
}

namespace {

CGPoint toScreen(CGPoint point, const UIView* view) {
  for (; view != nullptr; view = record(view).superview) {
    const LayerRecord& layer = record(view).layer;
    point.x += layer.origin.model().x - layer.bounds.model().origin.x;
    point.y += layer.origin.model().y - layer.bounds.model().origin.y;
  }
  return point;
}

}  // namespace

CGPoint convertPoint(CGPoint point, const UIView* from, const UIView* to) {
  const CGPoint onScreen = toScreen(point, from);
  const CGPoint origin = toScreen({}, to);
  return {onScreen.x - origin.x, onScreen.y - origin.y};
}

CGRect convertRect(const CGRect& rect, const UIView* from, const UIView* to) {
  return {convertPoint(rect.origin, from, to), rect.size};
}

CGRect frameOnScreen(const UIView* view) { return convertRect(record(view).layer.bounds.model(), view, nullptr); }

CGRect presentedFrameOnScreen(const UIView* view) {
  CGRect frame = record(view).layer.bounds.shown();
  for (; view != nullptr; view = record(view).superview) {
    const LayerRecord& layer = record(view).layer;
    frame.origin.x += layer.origin.shown().x - layer.bounds.shown().origin.x;
    frame.origin.y += layer.origin.shown().y - layer.bounds.shown().origin.y;
  }
  return frame;
}

bool contains(const CGRect& rect, CGPoint point) {
  return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width && point.y >= rect.origin.y &&
         point.y < rect.origin.y + rect.size.height;
}

namespace {

CGRect frame(UIView* self) { return modelFrame(record(self).layer); }
void setViewFrame(UIView* self, CGRect frame) { setFrame(self, frame); }
CGRect bounds(UIView* self) { return record(self).layer.bounds.model(); }
void setViewBounds(UIView* self, CGRect bounds) { setBounds(self, bounds); }

CGPoint center(UIView* self) {
  const CGRect current = frame(self);
  return {current.origin.x + current.size.width / 2, current.origin.y + current.size.height / 2};
}
void setCenter(UIView* self, CGPoint center) {
  const CGSize size = frame(self).size;
  setFrame(self, {{center.x - size.width / 2, center.y - size.height / 2}, size});
}

// Returns the view whose coordinates are used. If `other` is nil, this is the root of the view's tree, which is the
// window if the view is in one.
const UIView* viewOrRoot(const UIView* self, const UIView* other) { return other == nullptr ? rootOf(self) : other; }

CGPoint convertPointToView(UIView* self, CGPoint point, UIView* other) {
  return convertPoint(point, self, viewOrRoot(self, other));
}
CGPoint convertPointFromView(UIView* self, CGPoint point, UIView* other) {
  return convertPoint(point, viewOrRoot(self, other), self);
}
CGRect convertRectToView(UIView* self, CGRect rect, UIView* other) {
  return convertRect(rect, self, viewOrRoot(self, other));
}
CGRect convertRectFromView(UIView* self, CGRect rect, UIView* other) {
  return convertRect(rect, viewOrRoot(self, other), self);
}

CGSize sizeThatFits(UIView* self, CGSize) { return bounds(self).size; }
void sizeToFit(UIView* self) {
  const CGRect current = bounds(self);
  setBounds(self, {current.origin, objc::send<CGSize, "sizeThatFits:">(self, current.size)});
}

NSUInteger autoresizingMask(UIView* self) { return record(self).autoresizingMask; }
void setAutoresizingMask(UIView* self, NSUInteger mask) {
  record(self).autoresizingMask = mask;
  invalidateConstraints(self);
}

// Returns how far the view extends into the areas of the screen that the device reserves.
UIEdgeInsets safeAreaInsets(UIView* self) {
  if (windowOf(self) == nullptr) return {};
  const UIEdgeInsets device = environment().device.safeArea;
  const CGSize screen = environment().device.screen;
  const CGRect frame = frameOnScreen(self);
  const double right = frame.origin.x + frame.size.width;
  const double bottom = frame.origin.y + frame.size.height;
  return {std::max(0.0, device.top - std::max(0.0, frame.origin.y)),
          std::max(0.0, device.left - std::max(0.0, frame.origin.x)),
          std::max(0.0, device.bottom - std::max(0.0, screen.height - bottom)),
          std::max(0.0, device.right - std::max(0.0, screen.width - right))};
}

}  // namespace

std::span<const objc::MethodEntry> viewGeometryMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"frame", &frame>(),
      objc::method<"setFrame:", &setViewFrame>(),
      objc::method<"bounds", &bounds>(),
      objc::method<"setBounds:", &setViewBounds>(),
      objc::method<"center", &center>(),
      objc::method<"setCenter:", &setCenter>(),
      objc::method<"convertPoint:toView:", &convertPointToView>(),
      objc::method<"convertPoint:fromView:", &convertPointFromView>(),
      objc::method<"convertRect:toView:", &convertRectToView>(),
      objc::method<"convertRect:fromView:", &convertRectFromView>(),
      objc::method<"sizeThatFits:", &sizeThatFits>(),
      objc::method<"sizeToFit", &sizeToFit>(),
      objc::method<"autoresizingMask", &autoresizingMask>(),
      objc::method<"setAutoresizingMask:", &setAutoresizingMask>(),
      objc::method<"safeAreaInsets", &safeAreaInsets>(),
  };
  return methods;
}

}  // namespace uikit
