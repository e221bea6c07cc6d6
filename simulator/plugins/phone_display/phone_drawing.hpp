// Draws the phone around its screen. Main thread.
#pragma once

#include <cairo.h>

#include "simulator/plugins/phone_display/window_layout.hpp"

namespace phone_display {

// In all functions with a layout, the units of the context are pixels of the window.

// Fills the window with the background.
void drawBackground(cairo_t* context, const WindowLayout& layout);

// Draws the body of the phone and its shadow.
void drawBody(cairo_t* context, const base::DeviceProfile& device, const WindowLayout& layout);

// Draws the picture of the screen, with the corners of the device.
void drawScreen(cairo_t* context, const base::DeviceProfile& device, const WindowLayout& layout,
                cairo_surface_t* picture);

// Draws the icon of the window: a phone with a banner, in a square with this side.
void drawIcon(cairo_t* context, double side);

}  // namespace phone_display
