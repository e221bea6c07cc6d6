// Renders pictures of screens. A picture shows the visible windows of a screen, from back to front, at the current time
// of their animations. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>

#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/rendering/screen_contents.hpp"

namespace uikit {

// renderScreen returns a picture of the whole main screen. renderView returns a picture of the part of the screen that
// shows the view. The scale is in pixels per point. Both functions lay out the windows first and then paint only the
// pixels that differ from the last picture. A returned picture does not change while the caller retains it.
std::shared_ptr<drawing::Canvas> renderScreen(double scale);
std::shared_ptr<drawing::Canvas> renderView(UIView* view, double scale);
// Paints the whole main screen without using the last picture. The result has the same pixels as that of renderScreen.
std::shared_ptr<drawing::Canvas> paintScreen(double scale);

// A picture of a screen that its owner updates, for example for each frame of a window. It is independent of other
// pictures, so a different scale causes no additional work.
class ScreenPicture {
 public:
  // The screen must outlive the picture.
  explicit ScreenPicture(const Screen& screen = mainScreen()) : screen_(screen) {}
  // Updates the picture, as renderScreen does. Returns the pixels that were painted: all pixels that can differ from
  // the previous picture. The region is empty if no pixel has changed.
  drawing::RegionHandle update(double scale);
  // Returns the picture of the last update, or null before the first one.
  const std::shared_ptr<drawing::Canvas>& canvas() const { return canvas_; }

 private:
  const Screen& screen_;
  std::uint64_t generation_ = 0;
  std::uint64_t invalidations_ = 0;
  ScreenContents contents_;
  std::shared_ptr<drawing::Canvas> canvas_;
};

// Returns a number that increases whenever the contents of the screen change, including changes by running animations.
// While the number is the same, the last picture is up to date.
std::uint64_t displayGeneration();
// Call this when the contents of the screen have changed or a view needs layout.
void noteDisplayChange();
// Makes the next update of each picture paint all pixels. Call this if views look different although they have not
// changed, for example after a change of the appearance.
void invalidateScreen();
// Returns the number of calls of noteDisplayChange. In contrast to displayGeneration, it does not depend on the time.
std::uint64_t displayChanges();
// Calls a function at each display change until the observation is destroyed. The function can be called several times
// before the screen is painted. It must not create or destroy an observation.
class DisplayObservation {
 public:
  explicit DisplayObservation(std::function<void()> observer);
  DisplayObservation(const DisplayObservation&) = delete;
  DisplayObservation& operator=(const DisplayObservation&) = delete;
  ~DisplayObservation();

 private:
  std::list<std::function<void()>>::iterator position_;
};
bool isDisplayObserved();

}  // namespace uikit
