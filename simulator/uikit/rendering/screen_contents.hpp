// The display list of the screen: what each visible view currently paints. The difference of two display lists
// determines the pixels to repaint. Main thread only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/ui_window.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/environment/screen.hpp"

namespace uikit {

// All values that determine the pixels of a view, except for the pixels behind it.
struct PaintedAppearance {
  const UIView* view;  // identifies the view, which may have been deallocated
  std::uint64_t contentVersion;
  std::size_t depth;
  CGPoint position;  // the position on the screen, in points, of the origin of the view's coordinates
  CGRect bounds;
  CGSize modelSize;  // the final size of the view, because content can depend on the size at the end of an animation
  drawing::CornerShape corners;
  drawing::Color background;
  double opacity;
  double opacityOnScreen;  // the product of the view's opacity and the opacities of its ancestors
  bool clipsSubviews;
  drawing::PixelRectangle clip;     // the area, in pixels, to which the ancestors clip the view
  drawing::PixelRectangle painted;  // the pixels that the view itself paints or to which it clips its subviews
  friend bool operator==(const PaintedAppearance&, const PaintedAppearance&) = default;
};

struct PaintedView {
  PaintedAppearance appearance;
  CGPoint shift;                 // from the superview's coordinates to the view's coordinates, in points
  CGRect contentArea;            // in the coordinates of the view, in points
  drawing::PixelRectangle read;  // the pixels behind the view that a backdrop blurs; empty for other views
  // The rounded corners to which the view clips its subviews; empty for other views.
  std::array<drawing::PixelRectangle, 4> clippingCorners;
  drawing::PixelRectangle covered;  // the pixels that the view and its descendants paint
  std::size_t end = 0;              // the index after the last descendant of the view
};

// The visible views, from back to front. Each view precedes its descendants.
using ScreenContents = std::vector<PaintedView>;

// Returns the contents of the screen at the current time, at the scale of the canvas.
ScreenContents contentsOfScreen(const drawing::Canvas& canvas, const Screen& screen = mainScreen());
// Returns the contents of a visible window at the scale of its screen.
ScreenContents contentsOfWindow(UIWindow* window);

// Repaints the pixels of the region over a background of this color. The result does not depend on their previous
// values. The views must not have changed since `contents` was computed.
void paint(drawing::Canvas& canvas, const ScreenContents& contents, const cairo_region_t* region,
           const drawing::Color& ground);

}  // namespace uikit
