// Renders pictures of the screen. A picture shows the visible windows, from back to front, at the current time of their
// animations. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"

namespace uikit {

// renderScreen returns a picture of the whole screen. renderView returns a picture of the part of the screen that shows
// the view. The scale is in pixels per point. Both functions lay out the windows first and then paint only the pixels
// that differ from the last picture. A returned picture does not change while the caller retains it.
std::shared_ptr<drawing::Canvas> renderScreen(double scale);
std::shared_ptr<drawing::Canvas> renderView(UIView* view, double scale);
// Paints the whole screen without using the last picture. The result has the same pixels as that of renderScreen.
std::shared_ptr<drawing::Canvas> paintScreen(double scale);

// Returns a number that increases whenever the contents of the screen change, including changes by running animations.
// While the number is the same, the last picture is up to date.
std::uint64_t displayGeneration();
// Call this when the contents of the screen have changed or a view needs layout.
void noteDisplayChange();
// Discards the last picture. Call this if views look different although none of them has changed, for example because
// of a new appearance.
void invalidateScreen();
// Returns the number of calls of noteDisplayChange. In contrast to displayGeneration, it does not depend on the time.
std::uint64_t displayChanges();
// Sets the function to call at each display change. It can be called several times before the screen is painted. A new
// function replaces the previous one; null removes it.
void observeDisplayChanges(std::function<void()> observer);

}  // namespace uikit
