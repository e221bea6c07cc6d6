// Geometry types for drawing and layout. Units are points unless a name says pixels. The origin is at the top left, and
// y increases downward.
#pragma once

namespace drawing {

struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rectangle {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

// A color. Red, green, blue and alpha are from 0 to 1. The colors are not premultiplied by alpha.
struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
  friend bool operator==(const Color&, const Color&) = default;
};

}  // namespace drawing
