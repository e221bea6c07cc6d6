// Pictures of the screen: the visible windows, back to front, as shown at this moment.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"

namespace uikit {

// The whole screen, or the part of it that shows this view, at that many pixels per point. Lays out first. Only what
// differs from the last picture is painted; those who keep a picture keep it as it is.
std::shared_ptr<drawing::Canvas> renderScreen(double scale);
std::shared_ptr<drawing::Canvas> renderView(UIView* view, double scale);
// The screen painted from nothing: pixel for pixel what renderScreen gives.
std::shared_ptr<drawing::Canvas> paintScreen(double scale);

// Grows with each change of what the screen shows, running animations included: as long as it stays the same, the last
// picture is still right.
std::uint64_t displayGeneration();
void noteDisplayChange();
// All views look different though none of them was told: colors that follow the appearance.
void noteNewLook();
// How many changes have been noted: grows whenever a view needs a layout, and not with the time.
std::uint64_t displayChanges();
// Calls it whenever the screen has to be painted anew, perhaps many times before it is. One at most; null ends it.
void observeDisplayChanges(std::function<void()> observer);

}  // namespace uikit
