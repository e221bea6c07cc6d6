// CGColor: the color value behind a CGColorRef. It lives as long as the UIColor it was asked of; keepers copy the
// value.
#pragma once

#include "simulator/drawing/geometry.hpp"

struct CGColor {
  drawing::Color color;
};
