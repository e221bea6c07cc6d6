// CALayer: the background and the corners that a view draws behind its content. Radii are in points. The color can be
// null. The caller's reference to the color is not consumed.
#pragma once

#include "platform/ui_color.hpp"

class CALayer : public objc::Interface<"CALayer", NSObject> {
 public:
  void setBackgroundColor(CGColorRef color) { objc::send<void, "setBackgroundColor:">(this, color); }
  CGColorRef backgroundColor() const { return objc::send<CGColorRef, "backgroundColor">(this); }
  void setCornerRadius(CGFloat radius) { objc::send<void, "setCornerRadius:">(this, radius); }
  CGFloat cornerRadius() const { return objc::send<CGFloat, "cornerRadius">(this); }
  void setContinuousCorners(bool continuous) { objc::sendIfAvailable<void, "setContinuousCorners:">(this, continuous); }
  bool continuousCorners() const { return objc::sendIfAvailable<bool, "continuousCorners">(this); }
};
