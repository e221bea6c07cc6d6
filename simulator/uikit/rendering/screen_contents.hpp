// The display list of the screen: what each visible view currently paints. The difference of two display lists
// determines the pixels to repaint. Main thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/ui_view.hpp"
#include "simulator/drawing/canvas.hpp"

namespace uikit {

// Everything that determines the pixels of a view, except for the pixels behind it.
struct PaintedAppearance {
  const UIView* view;  // identifies the view; it can be deallocated already
  std::uint64_t contentVersion;
  std::size_t depth;
  CGPoint position;  // of the origin of the view's coordinates on the screen, in points
  CGRect bounds;
  CGSize modelSize;  // content can depend on the size at the end of an animation
  drawing::CornerShape corners;
  drawing::Color background;
  double opacity;
  double opacityOnScreen;  // the product with the opacities of its ancestors
  bool clipsSubviews;
  drawing::PixelRectangle clip;     // of its ancestors
  drawing::PixelRectangle painted;  // where the view itself paints or clips its subviews
  friend bool operator==(const PaintedAppearance&, const PaintedAppearance&) = default;
};

struct PaintedView {
  PaintedAppearance appearance;
  CGPoint shift;                    // from the coordinates of the superview to those of the view, in points
  CGRect contentArea;               // in the coordinates of the view
  drawing::PixelRectangle read;     // the pixels behind the view that a backdrop blurs; otherwise empty
  drawing::PixelRectangle covered;  // where the view and its descendants paint
  std::size_t end = 0;              // the index after its last descendant
};

// From back to front; each view precedes its descendants. Invisible views are not included.
using ScreenContents = std::vector<PaintedView>;

// The contents of the screen at the current time, at the scale of the canvas.
ScreenContents contentsOfScreen(const drawing::Canvas& canvas);

// Repaints the pixels of the region, regardless of their previous values. The views must not have changed since
// `contents` was computed.
void paint(drawing::Canvas& canvas, const ScreenContents& contents, const cairo_region_t* region);

}  // namespace uikit
