#include "simulator/uikit/rendering/renderer.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/animation/animation_group.hpp"
#include "simulator/uikit/rendering/damage.hpp"
#include "simulator/uikit/rendering/screen_contents.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

namespace {

struct Display {
  std::uint64_t generation = 1;
  std::uint64_t changes = 1;
  double animatedUntil = -1;  // the time of the last generation if an animation was running at that time; otherwise -1
  std::function<void()> observer;
};

Display& display() {
  static Display instance;
  return instance;
}

}  // namespace

void noteDisplayChange() {
  ++display().generation;
  ++display().changes;
  if (display().observer != nullptr) display().observer();
}

std::uint64_t displayChanges() { return display().changes; }

void observeDisplayChanges(std::function<void()> observer) { display().observer = std::move(observer); }

// While an animation is running, each new time has a new generation, including the time at which the animation ends.
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

// The last picture. The next picture is based on it.
struct Picture {
  std::uint64_t generation = 0;
  double scale = 0;
  ScreenContents contents;
  std::shared_ptr<drawing::Canvas> canvas;
};

Picture& lastPicture() {
  static Picture instance;
  return instance;
}

std::shared_ptr<drawing::Canvas> emptyScreen(double scale) {
  const CGSize screen = environment().device.screen;
  return std::make_shared<drawing::Canvas>(drawing::Size{screen.width, screen.height}, scale);
}

drawing::PixelRectangle allPixels(const drawing::Canvas& canvas) {
  return {0, 0, canvas.pixelWidth(), canvas.pixelHeight()};
}

}  // namespace

void invalidateScreen() {
  lastPicture() = {};
  noteDisplayChange();
}

std::shared_ptr<drawing::Canvas> paintScreen(double scale) {
  layoutWindows();
  auto canvas = emptyScreen(scale);
  paint(*canvas, contentsOfScreen(*canvas), drawing::regionOf(allPixels(*canvas)).get());
  return canvas;
}

std::shared_ptr<drawing::Canvas> renderScreen(double scale) {
  layoutWindows();
  Picture& picture = lastPicture();
  const std::uint64_t generation = displayGeneration();
  const bool canReuse = picture.canvas != nullptr && picture.scale == scale;
  if (canReuse && picture.generation == generation) return picture.canvas;

  if (!canReuse) picture.canvas = emptyScreen(scale);
  ScreenContents contents = contentsOfScreen(*picture.canvas);
  const drawing::RegionHandle damage =
      canReuse ? differingPixels(picture.contents, contents) : drawing::regionOf(allPixels(*picture.canvas));
  if (cairo_region_is_empty(damage.get()) == 0) {
    if (picture.canvas.use_count() > 1) picture.canvas = picture.canvas->copyOf(allPixels(*picture.canvas));
    paint(*picture.canvas, contents, damage.get());
  }
  picture.generation = generation;
  picture.scale = scale;
  picture.contents = std::move(contents);
  return picture.canvas;
}

namespace {

// Returns the part of the rectangle that is on the screen, extended to whole points.
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
  const CGRect part = visiblePoints(presentedFrameOnScreen(view));
  const auto pixels = [scale](double points) { return static_cast<int>(std::round(points * scale)); };
  return screen->copyOf(
      {pixels(part.origin.x), pixels(part.origin.y), pixels(part.size.width), pixels(part.size.height)});
}

}  // namespace uikit
