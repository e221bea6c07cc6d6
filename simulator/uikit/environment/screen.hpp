// A screen or another surface on which windows are shown. Windows are on the main screen unless setScreen was called.
// Main thread only.
#pragma once

#include "platform/core_graphics.hpp"
#include "simulator/drawing/geometry.hpp"

namespace uikit {

// Windows refer to their screen by its address, and the screen must outlive them. Call noteDisplayChange after a change
// of a member.
struct Screen {
  Screen(CGSize points, double pixelsPerPoint, const drawing::Color& color = {0, 0, 0, 1})
      : size(points), scale(pixelsPerPoint), ground(color) {}
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  CGSize size;            // in points
  double scale;           // pixels per point
  drawing::Color ground;  // the color behind the windows; it can be transparent
};

// Returns the screen of the device in the environment. +[UIScreen mainScreen] represents it. Touches reach only the
// windows of this screen.
const Screen& mainScreen();
// Sets the members of the main screen from the environment's device. setEnvironment calls this function.
void updateMainScreen();

}  // namespace uikit
