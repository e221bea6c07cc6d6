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

// One half of a corner of radius 1, from the straight edge to the arc. It lies with the rectangle's corner at the
// origin, its edge along the x axis and the arc's centre at (1, 1).
//
// The arc covers the middle of the corner's quarter turn. Between edge and arc runs one cubic Bezier curve whose ends
// have the curvature of what they meet: none at the edge, because three of its control points lie on it, and the arc's
// own at the other end. With the turn b still to be made there, the tangent from the arc's end meets the edge after t =
// tan(b / 2), and the curvature (2/3) d sin(b) / t^2 is 1 when the next control point is d = (3/2) t^2 / sin(b) further
// on.
struct Transition {
  double turn;
  double edge;         // where it leaves the edge
  double edgeControl;  // two control points on the edge
  double tangentControl;
  Point arcEnd;
};

// Reach: how far from the corner the curve may begin, at least 1.
Transition transition(double reach) {
  const double smoothing = std::clamp(reach, 1.0, continuousReach) - 1;
  const double turn = smoothing * std::numbers::pi / 4;
  const Point arcEnd{1 - std::sin(turn), 1 - std::cos(turn)};
  if (turn < 1e-6) return {0, 1, 1, 1, {1, 0}};
  const double tangent = std::tan(turn / 2);
  const double tangentControl = arcEnd.x + tangent * std::cos(turn);
  return {turn, 1 + smoothing, tangentControl + 1.5 * tangent * tangent / std::sin(turn), tangentControl, arcEnd};
}

// Draws in a frame whose x axis runs back along the edge just walked and whose y axis along the next one.
void addCorner(cairo_t* context, double radius, const Transition& before, const Transition& after) {
  const auto curveIn = [&](const Transition& part) {
    cairo_curve_to(context, part.edgeControl * radius, 0, part.tangentControl * radius, 0, part.arcEnd.x * radius,
                   part.arcEnd.y * radius);
  };
  cairo_line_to(context, before.edge * radius, 0);
  if (before.turn > 0) curveIn(before);
  const double quarter = std::numbers::pi / 2;
  cairo_arc_negative(context, radius, radius, radius, -quarter - before.turn, -2 * quarter + after.turn);
  if (after.turn == 0) return;
  cairo_curve_to(context, 0, after.tangentControl * radius, 0, after.edgeControl * radius, 0, after.edge * radius);
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
  const bool smooth = corners.curve == CornerCurve::Continuous;
  // Where an edge is too short for both its corners' curves, as the ends of a pill are, they share it.
  const Transition horizontal = transition(smooth ? rectangle.width / 2 / radius : 1);
  const Transition vertical = transition(smooth ? rectangle.height / 2 / radius : 1);

  // Counter-clockwise from the top edge. Each corner's frame: its origin, the direction back along the edge just walked
  // and that of the next edge.
  const double left = rectangle.x, right = left + rectangle.width;
  const double top = rectangle.y, bottom = top + rectangle.height;
  struct Frame {
    cairo_matrix_t matrix;
    const Transition& before;
    const Transition& after;
  };
  const std::array<Frame, 4> frames{{{{1, 0, 0, 1, left, top}, horizontal, vertical},
                                     {{0, -1, 1, 0, left, bottom}, vertical, horizontal},
                                     {{-1, 0, 0, -1, right, bottom}, horizontal, vertical},
                                     {{0, 1, -1, 0, right, top}, vertical, horizontal}}};
  cairo_new_sub_path(context);
  for (const Frame& frame : frames) {
    cairo_matrix_t outer;
    cairo_get_matrix(context, &outer);
    cairo_transform(context, &frame.matrix);
    addCorner(context, radius, frame.before, frame.after);
    cairo_set_matrix(context, &outer);
  }
  cairo_close_path(context);
}

}  // namespace drawing
