#include "simulator/uikit/rendering/screen_contents.hpp"

#include <algorithm>
#include <cmath>
#include <span>

#include "simulator/drawing/pixel_grid.hpp"
#include "simulator/uikit/views/view_record.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

namespace {

bool isEmpty(const CGRect& rect) { return !(rect.size.width > 0) || !(rect.size.height > 0); }

// Collects the contents of all visible windows and their visible descendants.
class ContentsCollector {
 public:
  ContentsCollector(double scale, const drawing::PixelRectangle& screen) : scale_(scale), screen_(screen) {}

  ScreenContents collect(std::span<UIWindow* const> windows) {
    for (UIWindow* window : windows) add(window, {{}, 1, 0, screen_});
    return std::move(contents_);
  }

 private:
  // The combined properties of the ancestors of a view.
  struct AncestorState {
    CGPoint position;
    double opacity;
    std::size_t depth;
    drawing::PixelRectangle clip;
  };

  // Returns the pixels that intersect the rectangle. They include all pixels that the canvas changes when it paints the
  // rectangle.
  drawing::PixelRectangle pixels(const CGPoint& position, const CGRect& rect) const {
    if (isEmpty(rect)) return {};
    const auto clamped = [](double pixel, int length) {
      return static_cast<int>(std::clamp(pixel, 0.0, 1.0 * length));
    };
    const double left = (position.x + rect.origin.x) * scale_;
    const double top = (position.y + rect.origin.y) * scale_;
    const int x = clamped(std::floor(left + drawing::pixelTolerance), screen_.width);
    const int y = clamped(std::floor(top + drawing::pixelTolerance), screen_.height);
    return {x, y, clamped(std::ceil(left + rect.size.width * scale_ - drawing::pixelTolerance), screen_.width) - x,
            clamped(std::ceil(top + rect.size.height * scale_ - drawing::pixelTolerance), screen_.height) - y};
  }

  void add(UIView* view, const AncestorState& ancestors) {
    const LayerRecord& layer = record(view).layer;
    const double opacity = std::clamp(layer.opacity.shown(), 0.0, 1.0);
    if (layer.hidden || !(opacity > 0)) return;
    const CGPoint origin = layer.origin.shown();
    const CGRect bounds = layer.bounds.shown();
    const CGPoint shift = {origin.x - bounds.origin.x, origin.y - bounds.origin.y};
    const CGPoint position = {ancestors.position.x + shift.x, ancestors.position.y + shift.y};
    const CGRect contentArea = objc::send<CGRect, "_contentArea">(view);
    const drawing::Color background = layer.background.shown();

    const drawing::PixelRectangle inside = drawing::intersection(pixels(position, bounds), ancestors.clip);
    const drawing::PixelRectangle clip = layer.masksToBounds ? inside : ancestors.clip;
    const drawing::PixelRectangle content = drawing::intersection(pixels(position, contentArea), clip);
    const bool fills = background.alpha > 0 || layer.masksToBounds;
    const drawing::PixelRectangle painted =
        drawing::boundingRectangle(fills ? inside : drawing::PixelRectangle{}, content);
    const double opacityOnScreen = opacity * ancestors.opacity;

    const std::size_t index = contents_.size();
    contents_.push_back({.appearance = {view, record(view).contentVersion, ancestors.depth, position, bounds,
                                        layer.bounds.model().size, shownCorners(view), background, opacity,
                                        opacityOnScreen, layer.masksToBounds, ancestors.clip, painted},
                         .shift = shift,
                         .contentArea = contentArea,
                         .read = pixelsReadBy(view, content),
                         .clippingCorners = clippingCorners(view, position, bounds),
                         .covered = painted});
    for (const objc::Ref<UIView>& subview : record(view).subviews)
      add(subview.get(), {position, opacityOnScreen, ancestors.depth + 1, clip});
    finishSubtree(index);
  }

  std::array<drawing::PixelRectangle, 4> clippingCorners(const UIView* view, const CGPoint& position,
                                                         const CGRect& bounds) const {
    const double radius = shownCorners(view).radius;
    if (!record(view).layer.masksToBounds || !(radius > 0)) return {};
    const auto [width, height] = bounds.size;
    const double side = std::min(radius * drawing::maxCornerExtent, std::min(width, height) / 2);
    const double left = bounds.origin.x, right = left + width - side;
    const double top = bounds.origin.y, bottom = top + height - side;
    return {pixels(position, {{left, top}, {side, side}}), pixels(position, {{right, top}, {side, side}}),
            pixels(position, {{left, bottom}, {side, side}}), pixels(position, {{right, bottom}, {side, side}})};
  }

  void finishSubtree(std::size_t index) {
    contents_[index].end = contents_.size();
    for (std::size_t inside = index + 1; inside < contents_.size(); inside = contents_[inside].end)
      contents_[index].covered = drawing::boundingRectangle(contents_[index].covered, contents_[inside].covered);
  }

  drawing::PixelRectangle pixelsReadBy(UIView* view, const drawing::PixelRectangle& content) const {
    if (content.isEmpty()) return {};
    const auto reach = static_cast<int>(objc::send<CGFloat, "_contentReach:">(view, scale_));
    return reach == 0 ? drawing::PixelRectangle{} : drawing::intersection(content.outset(reach), screen_);
  }

  double scale_;
  drawing::PixelRectangle screen_;
  ScreenContents contents_;
};

class Painter {
 public:
  Painter(drawing::Canvas& canvas, const ScreenContents& contents, const cairo_region_t* region)
      : canvas_(canvas), contents_(contents), region_(region) {}

  // Paints the views from index `begin` up to, but not including, index `end`. Each view is painted together with its
  // descendants.
  void paint(std::size_t begin, std::size_t end) {
    for (std::size_t index = begin; index < end; index = contents_[index].end)
      if (intersectsRegion(contents_[index].covered)) paintView(index);
  }

 private:
  bool intersectsRegion(const drawing::PixelRectangle& area) const {
    return drawing::overlap(region_, area) != CAIRO_REGION_OVERLAP_OUT;
  }

  void paintView(std::size_t index) {
    const PaintedView& painted = contents_[index];
    const PaintedAppearance& appearance = painted.appearance;
    canvas_.save();
    canvas_.translate(painted.shift.x, painted.shift.y);
    canvas_.beginLayer(appearance.opacity);
    if (appearance.background.alpha > 0)
      canvas_.fillRoundedRectangle(rectangle(appearance.bounds), appearance.corners, appearance.background);
    // A material is clipped to the same shape when it is drawn. A second clip would only make it slower.
    const bool isBackdrop = !painted.read.isEmpty();
    if (isBackdrop && intersectsRegion(appearance.painted)) paintContent(painted);
    if (appearance.clipsSubviews) canvas_.clipRoundedRectangle(rectangle(appearance.bounds), appearance.corners);
    if (!isBackdrop && intersectsRegion(appearance.painted)) paintContent(painted);
    paint(index + 1, painted.end);
    canvas_.endLayer();
    canvas_.restore();
  }

  void paintContent(const PaintedView& painted) {
    if (isEmpty(painted.contentArea)) return;
    canvas_.save();
    canvas_.clipPixels(drawing::regionOf(canvas_.coveredPixels(rectangle(painted.contentArea))).get());
    objc::send<void, "_drawContentInCanvas:">(const_cast<UIView*>(painted.appearance.view),
                                              static_cast<void*>(&canvas_));
    canvas_.restore();
  }

  drawing::Canvas& canvas_;
  const ScreenContents& contents_;
  const cairo_region_t* region_;
};

}  // namespace

ScreenContents contentsOfScreen(const drawing::Canvas& canvas, const Screen& screen) {
  return ContentsCollector(canvas.pixelsPerPoint(), {0, 0, canvas.pixelWidth(), canvas.pixelHeight()})
      .collect(visibleWindows(screen));
}

ScreenContents contentsOfWindow(UIWindow* window) {
  const Screen& screen = screenOf(window);
  const auto pixels = [&screen](double points) { return static_cast<int>(std::ceil(points * screen.scale)); };
  return ContentsCollector(screen.scale, {0, 0, pixels(screen.size.width), pixels(screen.size.height)})
      .collect({&window, 1});
}

void paint(drawing::Canvas& canvas, const ScreenContents& contents, const cairo_region_t* region,
           const drawing::Color& ground) {
  canvas.save();
  canvas.clipPixels(region);
  canvas.clear(ground);
  Painter(canvas, contents, region).paint(0, contents.size());
  canvas.restore();
}

}  // namespace uikit
