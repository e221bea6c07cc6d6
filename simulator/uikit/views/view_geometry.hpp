// Frames of views, and the conversion between their coordinates. Unless stated otherwise, the functions use the model
// values and not the values that running animations show. Lengths are in points. Main thread only.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// Set the frame or the bounds. A rectangle that contains NaN or an infinite value is ignored.
void setFrame(UIView* view, const CGRect& frame);
void setBounds(UIView* view, const CGRect& bounds);
// Sets a frame that a layout has computed. In contrast to setFrame, it does not invalidate the constraints.
void setFrameFromLayout(UIView* view, const CGRect& frame);

// Convert between the coordinates of two views. A null view selects screen coordinates.
CGPoint convertPoint(CGPoint point, const UIView* from, const UIView* to);
CGRect convertRect(const CGRect& rect, const UIView* from, const UIView* to);
CGRect frameOnScreen(const UIView* view);
// Returns the frame on the screen that running animations currently show.
CGRect presentedFrameOnScreen(const UIView* view);
bool contains(const CGRect& rect, CGPoint point);

enum AutoresizingFlag : NSUInteger {
  FlexibleLeftMargin = 1,
  FlexibleWidth = 2,
  FlexibleRightMargin = 4,
  FlexibleTopMargin = 8,
  FlexibleHeight = 16,
  FlexibleBottomMargin = 32,
};

// How a view follows its superview along one axis. A change of the superview's length is multiplied by these fractions
// and added to the position and the length of the view.
struct AutoresizingFractions {
  double position = 0;
  double length = 0;
};
// Whether each part of one axis is flexible: the margin before the view, its length, and the margin after it.
struct AxisMask {
  bool before;
  bool length;
  bool after;
};
AxisMask horizontalMask(NSUInteger mask);
AxisMask verticalMask(NSUInteger mask);
AutoresizingFractions autoresizingFractions(const AxisMask& mask, double position, double length,
                                            double superviewLength);

}  // namespace uikit
