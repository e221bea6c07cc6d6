// UIColor: an immutable color. Red, green, blue and alpha are from 0 to 1.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_object.hpp"

struct CGColor;
using CGColorRef = CGColor*;
template <>
struct objc::TypeEncoding<CGColor*> : objc::EncodingText<"^{CGColor=}"> {};

class UIColor : public objc::Interface<"UIColor", NSObject> {
 public:
  static UIColor* withRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return objc::send<UIColor*, "colorWithRed:green:blue:alpha:">(classObject(), red, green, blue, alpha);
  }
  static UIColor* redColor() { return objc::send<UIColor*, "redColor">(classObject()); }
  static UIColor* clearColor() { return objc::send<UIColor*, "clearColor">(classObject()); }
  // The pointer is valid as long as the UIColor exists.
  CGColorRef CGColor() const { return objc::send<CGColorRef, "CGColor">(this); }
  // Writes the components to the pointers that are not null.
  bool getRed(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const {
    return objc::send<bool, "getRed:green:blue:alpha:">(this, red, green, blue, alpha);
  }
};
