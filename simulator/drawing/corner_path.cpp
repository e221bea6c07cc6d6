#include "simulator/drawing/corner_path.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace drawing {
namespace {

// Where a continuous corner begins. A circular one begins at one radius, where its curvature changes visibly.
constexpr double continuousExtent = maxCornerExtent;

// The curvature in the middle of a continuous corner of radius 1. With this value, the curvature increases steadily
// from the edge to the middle. With a smaller value, the curvature would be largest before the middle.
constexpr double middleCurvature = 1.3;

// One half of a corner of radius 1, as a cubic Bezier curve from the edge to the middle of the corner. The origin is
// the corner of the rectangle, and the x axis is the edge. Circular and continuous corners have the same middle and the
// same tangent of 45 degrees there. Therefore, the y coordinate of the third control point follows from its x
// coordinate.
struct HalfCorner {
  double edge;           // the x coordinate of the first point
  double edgeControl;    // the x coordinate of the second point
  double middleControl;  // the x coordinate of the third point
};

// The x coordinate and the y coordinate of the middle of the corner.
constexpr double middle = 1 - std::numbers::sqrt2 / 2;

// Returns the standard approximation of an eighth of a circle.
HalfCorner circularHalf() {
  const double handle = 4.0 / 3.0 * std::tan(std::numbers::pi / 16);
  return {1, 1 - handle, middle + handle * std::numbers::sqrt2 / 2};
}

// Three points lie on the edge, so the curvature is zero at the edge. The tangent at the middle intersects the edge at
// the distance t = middle * sqrt(2) from the middle. If the next control point lies d farther along the edge, the
// curvature in the middle is (2/3) d sin(45 degrees) / t^2.
HalfCorner continuousHalf() {
  const double tangent = middle * std::numbers::sqrt2;
  const double distance = 1.5 * middleCurvature * tangent * tangent * std::numbers::sqrt2;
  return {continuousExtent, 2 * middle + distance, 2 * middle};
}

// Returns half of a corner. `maxExtent` is the available distance from the corner, as a multiple of the radius. If the
// rectangle is too small for continuous corners, they are interpolated toward circular ones, so the ends of a pill are
// semicircles.
HalfCorner halfCorner(CornerCurve curve, double maxExtent) {
  const HalfCorner circular = circularHalf();
  if (curve == CornerCurve::Circular) return circular;
  const HalfCorner continuous = continuousHalf();
  const double fraction = (std::clamp(maxExtent, 1.0, continuousExtent) - 1) / (continuousExtent - 1);
  return {std::lerp(circular.edge, continuous.edge, fraction),
          std::lerp(circular.edgeControl, continuous.edgeControl, fraction),
          std::lerp(circular.middleControl, continuous.middleControl, fraction)};
}

// Adds a corner in a coordinate system whose origin is the corner, whose x axis points back along the previous edge,
// and whose y axis points along the next edge.
void addCorner(cairo_t* context, double radius, const HalfCorner& half) {
  const double edge = half.edge * radius, edgeControl = half.edgeControl * radius, center = middle * radius;
  const double far = half.middleControl * radius, near = 2 * center - far;
  cairo_line_to(context, edge, 0);
  cairo_curve_to(context, edgeControl, 0, far, near, center, center);
  cairo_curve_to(context, near, far, 0, edgeControl, 0, edge);
}

// Clamps a range to the interval from -`limit` to `limit` pixels. A position in pixels is `scale` * position +
// `offset`.
void clampRange(double& begin, double& length, double scale, double offset, double limit) {
  const double end = std::min(begin + length, (limit - offset) / scale);
  begin = std::max(begin, (-limit - offset) / scale);
  length = end - begin;
}

}  // namespace

Rectangle representable(cairo_t* context, Rectangle rectangle) {
  constexpr double maxPixels = 1'000'000;
  cairo_matrix_t transform;
  cairo_get_matrix(context, &transform);
  if (transform.xy != 0 || transform.yx != 0 || transform.xx <= 0 || transform.yy <= 0) return rectangle;
  clampRange(rectangle.x, rectangle.width, transform.xx, transform.x0, maxPixels);
  clampRange(rectangle.y, rectangle.height, transform.yy, transform.y0, maxPixels);
  return rectangle;
}

void addRoundedRectangle(cairo_t* context, const Rectangle& given, const CornerShape& corners) {
  const Rectangle rectangle = representable(context, given);
  if (!(rectangle.width > 0 && rectangle.height > 0)) return;
  const double half = std::min(rectangle.width, rectangle.height) / 2;
  const double radius = std::clamp(std::isnan(corners.radius) ? 0 : corners.radius, 0.0, half);
  if (radius <= 0) {
    cairo_rectangle(context, rectangle.x, rectangle.y, rectangle.width, rectangle.height);
    return;
  }
  const HalfCorner shape = halfCorner(corners.curve, half / radius);

  // The coordinate systems of the four corners, counterclockwise from the top left corner.
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

DividedRectangle divideRoundedRectangle(cairo_t* context, const Rectangle& rectangle, const CornerShape& corners) {
  const Rectangle bounds = representable(context, rectangle);
  if (!(bounds.width > 0 && bounds.height > 0)) return {};
  double left = bounds.x, top = bounds.y, right = bounds.x + bounds.width, bottom = bounds.y + bounds.height;
  cairo_user_to_device(context, &left, &top);
  cairo_user_to_device(context, &right, &bottom);
  const double pixelsPerUnit = std::max((right - left) / bounds.width, (bottom - top) / bounds.height);
  const double half = std::min(bounds.width, bounds.height) / 2;
  const double radius = std::clamp(std::isnan(corners.radius) ? 0 : corners.radius, 0.0, half) * pixelsPerUnit;
  const int extent = radius > 0 ? static_cast<int>(std::ceil(radius * maxCornerExtent)) + 1 : 0;

  const auto between = [](double x0, double y0, double x1, double y1) {
    const auto x = static_cast<int>(x0), y = static_cast<int>(y0);
    return PixelRectangle{x, y, static_cast<int>(x1) - x, static_cast<int>(y1) - y};
  };
  const double outerLeft = std::floor(left), outerRight = std::ceil(right);
  const double outerTop = std::floor(top), outerBottom = std::ceil(bottom);
  const double innerLeft = std::ceil(left), innerRight = std::floor(right);
  const double innerTop = std::ceil(top), innerBottom = std::floor(bottom);
  const double cornerLeft = innerLeft + extent, cornerRight = innerRight - extent;
  const double cornerTop = innerTop + extent, cornerBottom = innerBottom - extent;
  const bool isDivisible = cornerLeft < cornerRight && cornerTop < cornerBottom;
  if (!isDivisible) return {.inside = {}, .border = {between(outerLeft, outerTop, outerRight, outerBottom)}};
  return {.inside = {between(cornerLeft, innerTop, cornerRight, cornerTop),
                     between(innerLeft, cornerTop, innerRight, cornerBottom),
                     between(cornerLeft, cornerBottom, cornerRight, innerBottom)},
          .border = {between(outerLeft, outerTop, cornerLeft, cornerTop),
                     between(cornerRight, outerTop, outerRight, cornerTop),
                     between(outerLeft, cornerBottom, cornerLeft, outerBottom),
                     between(cornerRight, cornerBottom, outerRight, outerBottom),
                     between(cornerLeft, outerTop, cornerRight, innerTop),
                     between(cornerLeft, innerBottom, cornerRight, outerBottom),
                     between(outerLeft, cornerTop, innerLeft, cornerBottom),
                     between(innerRight, cornerTop, outerRight, cornerBottom)}};
}

}  // namespace drawing
