// Where views are: frames, and points from one view's coordinates to another's. By the model, not by what is shown.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

void setFrame(UIView* view, const CGRect& frame);
void setBounds(UIView* view, const CGRect& bounds);
// The frame that the view's own layout gives it: the constraints know of it already.
void placeFrame(UIView* view, const CGRect& frame);

// Between the coordinates of two views; null stands for the screen.
CGPoint convertPoint(CGPoint point, const UIView* from, const UIView* to);
CGRect convertRect(const CGRect& rect, const UIView* from, const UIView* to);
CGRect frameOnScreen(const UIView* view);
// The one exception: where it is seen at this moment of its animations.
CGRect shownFrameOnScreen(const UIView* view);
bool contains(const CGRect& rect, CGPoint point);

enum AutoresizingFlag : NSUInteger {
  FlexibleLeftMargin = 1,
  FlexibleWidth = 2,
  FlexibleRightMargin = 4,
  FlexibleTopMargin = 8,
  FlexibleHeight = 16,
  FlexibleBottomMargin = 32,
};

// How a change of the superview's length goes into a view's place and length along one axis, as parts of 1.
struct AutoresizingShares {
  double position = 0;
  double length = 0;
};
struct AxisMask {
  bool before;
  bool length;
  bool after;
};
AxisMask horizontalMask(NSUInteger mask);
AxisMask verticalMask(NSUInteger mask);
AutoresizingShares autoresizingShares(const AxisMask& mask, double position, double length, double superviewLength);

}  // namespace uikit
