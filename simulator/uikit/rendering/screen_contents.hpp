// What each visible view paints at this moment. Two of them tell what a new picture has to paint anew.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"

namespace uikit {

// All that a view's pixels depend on, but for those beneath it.
struct PaintedLook {
  const UIView* view;  // to tell it from others; it may be gone
  std::uint64_t contentVersion;
  std::size_t depth;
  CGPoint position;  // of its coordinates' origin on the screen, in points
  CGRect bounds;
  CGSize modelSize;  // content may be laid out for where an animation ends
  drawing::CornerShape corners;
  drawing::Color background;
  double opacity;
  double opacityOnScreen;  // with that of the views around
  bool clipsSubviews;
  drawing::PixelRectangle clip;     // of the views around
  drawing::PixelRectangle painted;  // where it paints itself, or cuts others off
  friend bool operator==(const PaintedLook&, const PaintedLook&) = default;
};

struct PaintedView {
  PaintedLook look;
  CGPoint shift;                    // of its coordinates in those of the view around, in points
  CGRect contentArea;               // in its own coordinates
  drawing::PixelRectangle read;     // the pixels beneath that its own depend on; empty for most
  drawing::PixelRectangle covered;  // where it and those inside it paint
  std::size_t end = 0;              // the index after the last of those inside it
};

// Back to front, each before those inside it. Views that are not to be seen are left out.
using ScreenContents = std::vector<PaintedView>;

// At the canvas's scale.
ScreenContents contentsOfScreen(const drawing::Canvas& canvas);

// Paints these pixels of the canvas, whatever was there. The views must still be as they were.
void paint(drawing::Canvas& canvas, const ScreenContents& contents, const cairo_region_t* region);

}  // namespace uikit
