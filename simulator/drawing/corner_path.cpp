#include "simulator/drawing/corner_path.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace drawing {
namespace {

// A continuous corner leaves the straight edge this many radii before the rectangle's corner; a circular one leaves it
// at one radius, and the eye sees where its curvature starts.
constexpr double continuousReach = 1.528665;

// The curvature in the middle of a continuous corner of radius 1. With this much it rises steadily from the edge on;
// with less it would rise too far and fall again.
constexpr double middleCurvature = 1.3;

// One half of a corner of radius 1 as a Bezier curve from the edge to the corner's middle. The rectangle's corner is
// the origin, the edge the x axis. Both kinds of corner go through the same middle at 45 degrees; so the third control
// point lies as far from the middle to the right as upwards, and its x tells its y.
struct HalfCorner {
  double edge;  // where it leaves the edge
  double edgeControl;
  double middleControl;
};

// The middle's x and y.
constexpr double middle = 1 - std::numbers::sqrt2 / 2;

// The usual approximation of an eighth of a circle.
HalfCorner circularHalf() {
  const double handle = 4.0 / 3.0 * std::tan(std::numbers::pi / 16);
  return {1, 1 - handle, middle + handle * std::numbers::sqrt2 / 2};
}

// Three control points lie on the edge, so that there is no curvature where the curve leaves it. The middle's tangent
// meets the edge after t = middle * sqrt(2); there the curvature is (2/3) d sin(45 degrees) / t^2 when the next control
// point follows d further on.
HalfCorner continuousHalf() {
  const double tangent = middle * std::numbers::sqrt2;
  const double distance = 1.5 * middleCurvature * tangent * tangent * std::numbers::sqrt2;
  return {continuousReach, 2 * middle + distance, 2 * middle};
}

// Reach: how many radii from the corner the curve may begin. Where the rectangle is too small for continuous corners,
// they come closer to circular ones; the ends of a pill are half circles.
HalfCorner halfCorner(CornerCurve curve, double reach) {
  const HalfCorner circular = circularHalf();
  if (curve == CornerCurve::Circular) return circular;
  const HalfCorner continuous = continuousHalf();
  const double share = (std::clamp(reach, 1.0, continuousReach) - 1) / (continuousReach - 1);
  return {std::lerp(circular.edge, continuous.edge, share),
          std::lerp(circular.edgeControl, continuous.edgeControl, share),
          std::lerp(circular.middleControl, continuous.middleControl, share)};
}

// Draws in a frame whose x axis runs back along the edge just walked and whose y axis along the next one.
void addCorner(cairo_t* context, double radius, const HalfCorner& half) {
  const double edge = half.edge * radius, edgeControl = half.edgeControl * radius, center = middle * radius;
  const double far = half.middleControl * radius, near = 2 * center - far;
  cairo_line_to(context, edge, 0);
  cairo_curve_to(context, edgeControl, 0, far, near, center, center);
  cairo_curve_to(context, near, far, 0, edgeControl, 0, edge);
}

}  // namespace

void addRoundedRectangle(cairo_t* context, const Rectangle& rectangle, const CornerShape& corners) {
  if (!(rectangle.width > 0 && rectangle.height > 0)) return;
  const double half = std::min(rectangle.width, rectangle.height) / 2;
  const double radius = std::clamp(std::isnan(corners.radius) ? 0 : corners.radius, 0.0, half);
  if (radius <= 0) {
    cairo_rectangle(context, rectangle.x, rectangle.y, rectangle.width, rectangle.height);
    return;
  }
  const HalfCorner shape = halfCorner(corners.curve, half / radius);

  // Counter-clockwise from the top edge. Each corner's frame has the directions back along the edge just walked and
  // along the next one, and its origin in the corner.
  const double left = rectangle.x, right = left + rectangle.width;
  const double top = rectangle.y, bottom = top + rectangle.height;
  const std::array<cairo_matrix_t, 4> frames{
      {{1, 0, 0, 1, left, top}, {0, -1, 1, 0, left, bottom}, {-1, 0, 0, -1, right, bottom}, {0, 1, -1, 0, right, top}}};
  cairo_new_sub_path(context);
  for (const cairo_matrix_t& frame : frames) {
    cairo_matrix_t outer;
    cairo_get_matrix(context, &outer);
    cairo_transform(context, &frame);
    addCorner(context, radius, shape);
    cairo_set_matrix(context, &outer);
  }
  cairo_close_path(context);
}

}  // namespace drawing
