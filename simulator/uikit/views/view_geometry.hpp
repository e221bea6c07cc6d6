// Frames of views and the conversion between their coordinates. The functions use the model values, not those that
// running animations show. Lengths are in points. Main thread only.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// A frame or bounds with a NaN or an infinite value is ignored.
void setFrame(UIView* view, const CGRect& frame);
void setBounds(UIView* view, const CGRect& bounds);
// Sets a frame that a layout has computed. Unlike setFrame, it does not invalidate the constraints.
void setFrameFromLayout(UIView* view, const CGRect& frame);

// Converts between the coordinates of two views. Null means screen coordinates.
CGPoint convertPoint(CGPoint point, const UIView* from, const UIView* to);
CGRect convertRect(const CGRect& rect, const UIView* from, const UIView* to);
CGRect frameOnScreen(const UIView* view);
// The frame that running animations currently show, unlike all other functions here.
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

// The fractions of a change of the superview's length that change the position and the length of a view along one axis.
struct AutoresizingFractions {
  double position = 0;
  double length = 0;
};
// The flexible parts of one axis: the margin before the view, its length, and the margin after it.
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
