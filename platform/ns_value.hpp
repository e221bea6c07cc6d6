// NSValue: a C value as an object. UIKit adds the accessor for rectangles.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_object.hpp"

class NSValue : public objc::Interface<"NSValue", NSObject> {
 public:
  // Call this function only on a value that contains a rectangle.
  CGRect CGRectValue() const { return objc::send<CGRect, "CGRectValue">(this); }
};
