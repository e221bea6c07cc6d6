#include "simulator/uikit/renderer.hpp"

#include <cairo.h>

#include <algorithm>
#include <cmath>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/animation_group.hpp"
#include "simulator/uikit/view_geometry.hpp"
#include "simulator/uikit/window.hpp"

namespace uikit {

namespace {

struct Display {
  std::uint64_t generation = 1;
  std::uint64_t changes = 1;
  double animatedUntil = -1;  // the time of the last generation, while something moves
  std::function<void()> observer;
};

Display& display() {
  static Display held;
  return held;
}

}  // namespace

void noteDisplayChange() {
  ++display().generation;
  ++display().changes;
  if (display().observer != nullptr) display().observer();
}

std::uint64_t displayChanges() { return display().changes; }

void observeDisplayChanges(std::function<void()> observer) { display().observer = std::move(observer); }

// A running animation changes the screen with the time alone; so does its end.
std::uint64_t displayGeneration() {
  Display& state = display();
  const double now = foundation::now();
  if (state.animatedUntil >= 0 && state.animatedUntil < now) {
    ++state.generation;
    state.animatedUntil = -1;
  }
  if (isAnimating()) state.animatedUntil = now;
  return state.generation;
}

namespace {

void drawView(drawing::Canvas& canvas, UIView* view) {
  const LayerRecord& layer = record(view).layer;
  const double opacity = std::clamp(layer.opacity.shown(), 0.0, 1.0);
  if (layer.hidden || opacity <= 0) return;

  const CGPoint origin = layer.origin.shown();
  const CGRect bounds = layer.bounds.shown();
  const drawing::CornerShape corners = shownCorners(view);
  canvas.save();
  canvas.translate(origin.x - bounds.origin.x, origin.y - bounds.origin.y);
  canvas.beginLayer(opacity);
  const drawing::Color background = layer.background.shown();
  if (background.alpha > 0) canvas.fillRoundedRectangle(rectangle(bounds), corners, background);
  if (layer.masksToBounds) canvas.clipRoundedRectangle(rectangle(bounds), corners);
  objc::send<void, "_drawContentInCanvas:">(view, static_cast<void*>(&canvas));
  for (const objc::Ref<UIView>& subview : record(view).subviews) drawView(canvas, subview.get());
  canvas.endLayer();
  canvas.restore();
}

struct Picture {
  std::uint64_t generation = 0;
  double scale = 0;
  std::shared_ptr<drawing::Canvas> canvas;
};

// The last picture, as long as it is right.
Picture& lastPicture() {
  static Picture held;
  return held;
}

}  // namespace

std::shared_ptr<drawing::Canvas> renderScreen(double scale) {
  layoutWindows();
  Picture& picture = lastPicture();
  const std::uint64_t generation = displayGeneration();
  if (picture.canvas != nullptr && picture.generation == generation && picture.scale == scale) return picture.canvas;

  const CGSize screen = environment().device.screen;
  auto canvas = std::make_shared<drawing::Canvas>(drawing::Size{screen.width, screen.height}, scale);
  canvas->clear({0, 0, 0, 1});
  for (UIWindow* window : visibleWindows()) drawView(*canvas, window);
  picture = {generation, scale, canvas};
  return canvas;
}

namespace {

CGRect shownFrameOnScreen(const UIView* view) {
  CGRect frame = shownBounds(view);
  for (; view != nullptr; view = record(view).superview) {
    const CGPoint origin = record(view).layer.origin.shown();
    const CGRect bounds = shownBounds(view);
    frame.origin.x += origin.x - bounds.origin.x;
    frame.origin.y += origin.y - bounds.origin.y;
  }
  return frame;
}

// The whole points around what of the rectangle is on the screen.
CGRect visiblePoints(const CGRect& rect) {
  const CGSize screen = environment().device.screen;
  const double left = std::clamp(std::floor(rect.origin.x), 0.0, screen.width);
  const double top = std::clamp(std::floor(rect.origin.y), 0.0, screen.height);
  const double right = std::clamp(std::ceil(rect.origin.x + rect.size.width), 0.0, screen.width);
  const double bottom = std::clamp(std::ceil(rect.origin.y + rect.size.height), 0.0, screen.height);
  return {{left, top}, {right - left, bottom - top}};
}

}  // namespace

std::shared_ptr<drawing::Canvas> renderView(UIView* view, double scale) {
  const std::shared_ptr<drawing::Canvas> screen = renderScreen(scale);
  const CGRect part = visiblePoints(shownFrameOnScreen(view));
  auto canvas = std::make_shared<drawing::Canvas>(drawing::Size{part.size.width, part.size.height}, scale);
  cairo_t* context = canvas->context();
  cairo_save(context);
  cairo_identity_matrix(context);
  cairo_set_source_surface(context, screen->surface(), -std::round(part.origin.x * scale),
                           -std::round(part.origin.y * scale));
  cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_NEAREST);
  cairo_paint(context);
  cairo_restore(context);
  return canvas;
}

}  // namespace uikit
