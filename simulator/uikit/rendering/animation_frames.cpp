#include "simulator/uikit/rendering/animation_frames.hpp"

#include <algorithm>
#include <vector>

#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/animation/animation_group.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/rendering/screen_contents.hpp"
#include "simulator/uikit/views/view_record.hpp"
#include "simulator/uikit/views/window.hpp"

namespace uikit {

namespace {

using foundation::Nanoseconds;

// The maximum number of frames that a search examines. A limit is necessary because the delay of an animation can be of
// any length.
constexpr int maxSearchedFrames = 60;

struct Schedule {
  foundation::FrameObserverId observer = 0;  // 0 if there is none
  std::uint64_t searchedChanges = 0;         // the number of display changes at the last search
};

Schedule& schedule() {
  static Schedule instance;
  return instance;
}

bool containsAnimation(const UIView* view) {
  return record(view).layer.isAnimating() ||
         std::ranges::any_of(record(view).subviews,
                             [](const objc::Ref<UIView>& subview) { return containsAnimation(subview.get()); });
}

std::vector<UIWindow*> animatedWindows() {
  std::vector<UIWindow*> windows = visibleWindows();
  std::erase_if(windows, [](const UIWindow* window) { return !containsAnimation(window); });
  return windows;
}

std::vector<PaintedAppearance> visibleAppearances(const std::vector<UIWindow*>& windows, Nanoseconds time) {
  const ShownTime shown(foundation::secondsOf(time));
  std::vector<PaintedAppearance> visible;
  for (UIWindow* window : windows)
    for (const PaintedView& view : contentsOfWindow(window))
      if (!view.appearance.painted.isEmpty()) visible.push_back(view.appearance);
  return visible;
}

void requestFrame(Nanoseconds time, void (*whenShown)()) {
  schedule().observer = foundation::addFrameObserverAt(time, [whenShown](double) {
    schedule().observer = 0;
    whenShown();
    return foundation::FrameDemand::Done;
  });
}

void search() {
  const std::vector<UIWindow*> windows = animatedWindows();
  if (windows.empty()) return;
  const Nanoseconds now = foundation::clock::now();
  const std::vector<PaintedAppearance> current = visibleAppearances(windows, now);
  Nanoseconds frame = now;
  for (int searched = 0; searched < maxSearchedFrames; ++searched) {
    const bool isLast = foundation::secondsOf(frame) >= endOfAnimations();
    if (isLast) return;
    frame = foundation::frameTimeAfter(frame);
    if (visibleAppearances(windows, frame) != current) return requestFrame(frame, &noteDisplayChange);
  }
  requestFrame(frame, &invalidateAnimationFrames);
}

// Returns whether the view or a descendant paints a pixel of the screen at this time.
bool isVisibleAt(UIView* view, Nanoseconds time) {
  const ShownTime shown(foundation::secondsOf(time));
  const ScreenContents contents = contentsOfWindow(view->window());
  const auto root =
      std::ranges::find_if(contents, [view](const PaintedView& painted) { return painted.appearance.view == view; });
  return root != contents.end() && !root->covered.isEmpty();
}

}  // namespace

void skipInvisibleFrames(UIView* view) {
  if (view->window() == nullptr) return;
  layoutWindows();
  const Nanoseconds now = foundation::clock::now();
  Nanoseconds frame = now;
  for (int searched = 0; searched < maxSearchedFrames && !isVisibleAt(view, frame); ++searched)
    frame = foundation::frameTimeAfter(frame);
  if (!isVisibleAt(view, frame)) return;
  record(view).layer.origin.advanceAnimations(foundation::secondsOf(frame - now));
  noteDisplayChange();
}

void scheduleAnimationFrames() {
  Schedule& state = schedule();
  if (state.searchedChanges == displayChanges()) return;
  state.searchedChanges = displayChanges();
  if (state.observer != 0) foundation::removeFrameObserver(state.observer);
  state.observer = 0;
  if (isAnimating() && isDisplayObserved()) search();
}

void invalidateAnimationFrames() { schedule().searchedChanges = 0; }

}  // namespace uikit
