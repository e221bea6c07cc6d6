// UIFont: an immutable font: a typeface with a size in points.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_object.hpp"

class UIFont : public objc::Interface<"UIFont", NSObject> {
 public:
  static UIFont* systemFontOfSize(CGFloat size) {
    return objc::send<UIFont*, "systemFontOfSize:">(classObject(), size);
  }
  static UIFont* boldSystemFontOfSize(CGFloat size) {
    return objc::send<UIFont*, "boldSystemFontOfSize:">(classObject(), size);
  }
  UIFont* fontWithSize(CGFloat size) const { return objc::send<UIFont*, "fontWithSize:">(this, size); }
  CGFloat pointSize() const { return objc::send<CGFloat, "pointSize">(this); }
};
