// CGColor: the target of a CGColorRef. It is valid as long as the UIColor or CALayer that returned it. Copy the value
// in order to store it.
#pragma once

#include "simulator/drawing/geometry.hpp"

struct CGColor {
  drawing::Color color;
};
