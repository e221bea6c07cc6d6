// Pictures of the screen: the visible windows, from back to front, at the current time of their animations. Main thread
// only.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"

namespace uikit {

// Returns a picture of the whole screen, or of the part of it that shows the view. The scale is in pixels per point.
// Lays out the windows first and then paints only the pixels that differ from the last picture. A returned picture
// never changes while the caller stores it.
std::shared_ptr<drawing::Canvas> renderScreen(double scale);
std::shared_ptr<drawing::Canvas> renderView(UIView* view, double scale);
// Paints the whole screen without using the last picture. The result has the same pixels as that of renderScreen.
std::shared_ptr<drawing::Canvas> paintScreen(double scale);

// A number that increases whenever the contents of the screen change, also by running animations. As long as it is the
// same, the last picture is up to date.
std::uint64_t displayGeneration();
// Call this when the contents of the screen have changed or a view needs layout.
void noteDisplayChange();
// Discards the last picture. Call this when views look different although none of them was changed, for example because
// of a new appearance.
void invalidateScreen();
// The number of calls of noteDisplayChange. Unlike displayGeneration, it does not depend on the time.
std::uint64_t displayChanges();
// Sets the function to call at each display change. It can be called several times before the screen is painted. There
// is at most one observer; null removes it.
void observeDisplayChanges(std::function<void()> observer);

}  // namespace uikit
