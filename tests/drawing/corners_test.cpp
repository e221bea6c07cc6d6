#include <cmath>
#include <limits>
#include <numbers>

#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

constexpr double side = 200;

Canvas filledShape(const Size& size, const CornerShape& corners) {
  Canvas canvas(size, 1);
  canvas.fillRoundedRectangle({0, 0, size.width, size.height}, corners, black);
  return canvas;
}

// The distance from the top edge to the shape in this column, in pixels.
double depth(const Canvas& canvas, int column) {
  double missing = 0;
  for (int y = 0; y < canvas.pixelHeight() / 2; ++y) missing += 1 - alphaOf(canvas.pixel(column, y)) / 255.0;
  return missing;
}

TEST(Corners, CircularCornersFollowACircle) {
  const Canvas canvas = filledShape({side, side}, {60, CornerCurve::Circular});
  for (int column = 5; column < 60; ++column) {
    const double x = 60 - (column + 0.5);
    EXPECT_NEAR(depth(canvas, column), 60 - std::sqrt(60 * 60 - x * x), 0.2) << column;
  }
  EXPECT_EQ(depth(canvas, 61), 0);
}

TEST(Corners, ContinuousCornersMeetTheCircleInTheMiddle) {
  const Canvas circular = filledShape({side, side}, {60, CornerCurve::Circular});
  const Canvas continuous = filledShape({side, side}, {60, CornerCurve::Continuous});
  const int middle = static_cast<int>(60 * (1 - std::numbers::sqrt2 / 2));
  EXPECT_NEAR(depth(continuous, middle), depth(circular, middle), 0.3);
}

TEST(Corners, ContinuousCornersLeaveTheEdgeEarlier) {
  const Canvas canvas = filledShape({side, side}, {60, CornerCurve::Continuous});
  EXPECT_GT(depth(canvas, 62), 0.3);
  EXPECT_EQ(depth(canvas, 92), 0);
}

TEST(Corners, CurvatureOfContinuousCornersGrowsTowardTheMiddle) {
  const Canvas canvas = filledShape({800, 800}, {300, CornerCurve::Continuous});
  // Measures the curvature, as the second difference of the depth, from the edge to near the middle of the corner.
  constexpr int step = 40;
  double previous = 0;
  for (int column = 400; column > 140; column -= step) {
    const double curvature = depth(canvas, column - step) - 2 * depth(canvas, column) + depth(canvas, column + step);
    EXPECT_GE(curvature, previous - 0.2) << column;
    previous = curvature;
  }
}

TEST(Corners, TranslucentFillIsUniformInside) {
  Canvas canvas({side, side}, 1);
  canvas.fillRoundedRectangle({10.3, 10.6, 150.5, 120.2}, {15, CornerCurve::Continuous}, {0, 0, 0, 0.5});
  const std::uint32_t expected = canvas.pixel(80, 70);
  EXPECT_NEAR(alphaOf(expected), 128, 1);
  for (int x = 11; x < 160; ++x) EXPECT_EQ(canvas.pixel(x, 70), expected) << x;
  for (int y = 11; y < 130; ++y) EXPECT_EQ(canvas.pixel(80, y), expected) << y;
  for (int offset = 16; offset < 60; ++offset) EXPECT_EQ(canvas.pixel(offset, offset), expected) << offset;
  EXPECT_LT(alphaOf(canvas.pixel(10, 70)), alphaOf(expected));
  EXPECT_LT(alphaOf(canvas.pixel(80, 130)), alphaOf(expected));
}

TEST(Corners, AllFourCornersAreEqual) {
  const Canvas canvas = filledShape({side, side}, {50, CornerCurve::Continuous});
  const int last = static_cast<int>(side) - 1;
  // The corners differ slightly, because the rasterizer does not sample edges symmetrically.
  constexpr int tolerance = 24;
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 80; ++x) {
      const int alpha = alphaOf(canvas.pixel(x, y));
      EXPECT_NEAR(alpha, alphaOf(canvas.pixel(last - x, y)), tolerance);
      EXPECT_NEAR(alpha, alphaOf(canvas.pixel(x, last - y)), tolerance);
      EXPECT_NEAR(alpha, alphaOf(canvas.pixel(y, x)), tolerance);
    }
  }
}

TEST(Corners, EndsOfACapsuleAreHalfCircles) {
  const Canvas continuous = filledShape({200, 60}, {30, CornerCurve::Continuous});
  EXPECT_TRUE(samePixels(continuous, filledShape({200, 60}, {30, CornerCurve::Circular})));
  EXPECT_TRUE(samePixels(continuous, filledShape({200, 60}, {500, CornerCurve::Continuous})));
}

TEST(Corners, ZeroOrInvalidRadiusGivesSquareCorners) {
  for (const double radius : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(filledShape({20, 20}, {radius, CornerCurve::Continuous}).pixel(0, 0), 0xFF000000) << radius;
  }
}

TEST(Corners, ClipMatchesFill) {
  Canvas clipped({side, side}, 1);
  clipped.clipRoundedRectangle({0, 0, side, side}, {60, CornerCurve::Continuous});
  clipped.fillRectangle({0, 0, side, side}, black);
  const Canvas shape = filledShape({side, side}, {60, CornerCurve::Continuous});
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 100; ++x) EXPECT_NEAR(alphaOf(clipped.pixel(x, y)), alphaOf(shape.pixel(x, y)), 2);
  }
}

TEST(Corners, ClipToAnEmptyRectangleHidesEverything) {
  Canvas canvas({10, 10}, 1);
  canvas.clipRoundedRectangle({2, 2, 0, 5}, {2, CornerCurve::Circular});
  canvas.fillRectangle({0, 0, 10, 10}, black);
  EXPECT_EQ(canvas.pixel(2, 3), 0U);
}

}  // namespace
}  // namespace drawing
