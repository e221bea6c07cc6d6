#include "simulator/uikit/rendering/renderer.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/animation/animation_group.hpp"
#include "simulator/uikit/rendering/animation_frames.hpp"
#include "simulator/uikit/rendering/damage.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

namespace {

struct Display {
  std::uint64_t generation = 1;
  std::uint64_t changes = 1;
  double animatedUntil = -1;  // the time of the last call if an animation was running then; otherwise -1
  std::uint64_t invalidations = 0;
  std::list<std::function<void()>> observers;
};

Display& display() {
  static Display instance;
  return instance;
}

}  // namespace

void noteDisplayChange() {
  ++display().generation;
  ++display().changes;
  for (const std::function<void()>& observer : display().observers) observer();
}

std::uint64_t displayChanges() { return display().changes; }

DisplayObservation::DisplayObservation(std::function<void()> observer)
    : position_(display().observers.insert(display().observers.end(), std::move(observer))) {
  invalidateAnimationFrames();
}

DisplayObservation::~DisplayObservation() { display().observers.erase(position_); }

bool isDisplayObserved() { return !display().observers.empty(); }

// While an animation is running, and when it ends, the generation increases whenever the time has changed.
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

std::shared_ptr<drawing::Canvas> canvasFor(const Screen& screen, double scale) {
  return std::make_shared<drawing::Canvas>(drawing::Size{screen.size.width, screen.size.height}, scale);
}

drawing::PixelRectangle allPixels(const drawing::Canvas& canvas) {
  return {0, 0, canvas.pixelWidth(), canvas.pixelHeight()};
}

}  // namespace

void invalidateScreen() {
  ++display().invalidations;
  noteDisplayChange();
}

std::shared_ptr<drawing::Canvas> paintScreen(double scale) {
  layoutWindows();
  auto canvas = canvasFor(mainScreen(), scale);
  paint(*canvas, contentsOfScreen(*canvas), drawing::regionOf(allPixels(*canvas)).get(), mainScreen().ground);
  return canvas;
}

drawing::RegionHandle ScreenPicture::update(double scale) {
  layoutWindows();
  const std::uint64_t generation = displayGeneration();
  const bool canReuse =
      canvas_ != nullptr && canvas_->pixelsPerPoint() == scale && invalidations_ == display().invalidations;
  if (canReuse && generation_ == generation) return drawing::RegionHandle(cairo_region_create());

  if (!canReuse) canvas_ = canvasFor(screen_, scale);
  ScreenContents contents = contentsOfScreen(*canvas_, screen_);
  drawing::RegionHandle damage =
      canReuse ? differingPixels(contents_, contents) : drawing::regionOf(allPixels(*canvas_));
  if (cairo_region_is_empty(damage.get()) == 0) {
    if (canvas_.use_count() > 1) canvas_ = canvas_->copyOf(allPixels(*canvas_));
    paint(*canvas_, contents, damage.get(), screen_.ground);
  }
  generation_ = generation;
  invalidations_ = display().invalidations;
  contents_ = std::move(contents);
  return damage;
}

std::shared_ptr<drawing::Canvas> renderScreen(double scale) {
  static ScreenPicture picture;
  picture.update(scale);
  return picture.canvas();
}

namespace {

// Returns the part of the rectangle that is on the screen, extended to whole points.
CGRect visiblePoints(const CGRect& rect) {
  const CGSize screen = mainScreen().size;
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
