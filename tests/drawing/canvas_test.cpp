#include "simulator/drawing/canvas.hpp"

#include <limits>

#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Canvas, PixelSizeIsPointSizeTimesScale) {
  const Canvas canvas({10, 5.1}, 2);
  EXPECT_EQ(canvas.pixelWidth(), 20);
  EXPECT_EQ(canvas.pixelHeight(), 11);
  EXPECT_EQ(canvas.pixel(3, 3), 0U);
}

TEST(Canvas, InvalidSizesAreClamped) {
  EXPECT_EQ(Canvas({0, -4}, 2).pixelWidth(), 1);
  EXPECT_EQ(Canvas({notANumber, 4}, notANumber).pixelWidth(), 1);
  EXPECT_EQ(Canvas({1e9, 1}, 1).pixelWidth(), 20'000);
}

TEST(Canvas, CoordinatesAreInPoints) {
  Canvas canvas({10, 10}, 2);
  canvas.fillRectangle({2, 2, 3, 3}, red);
  EXPECT_EQ(canvas.pixel(3, 4), 0U);
  EXPECT_EQ(canvas.pixel(4, 4), 0xFFFF0000);
  EXPECT_EQ(canvas.pixel(9, 9), 0xFFFF0000);
  EXPECT_EQ(canvas.pixel(10, 9), 0U);
}

TEST(Canvas, DrawsTheVisiblePartOfHugeRectangles) {
  for (const double huge : {6e6, 5e8, 1e9, 1e10}) {
    Canvas canvas({10, 10}, 2);
    canvas.clipRoundedRectangle({2, 2, huge, huge}, {5, CornerCurve::Circular});
    canvas.fillRoundedRectangle({-huge, -huge, 2 * huge, 2 * huge}, {0, CornerCurve::Continuous}, red);
    EXPECT_EQ(canvas.pixel(19, 19), 0xFFFF0000) << huge;
    EXPECT_EQ(canvas.pixel(3, 10), 0U) << huge;
    EXPECT_EQ(canvas.coveredPixels({2, 2, huge, huge}).width, 16) << huge;
  }
}

// Draws shapes with fractional edges, clipped to these pixels.
Canvas drawShapes(const cairo_region_t* clip) {
  Canvas canvas({60, 60}, 1);
  canvas.clipPixels(clip);
  canvas.clear(green);
  canvas.fillRectangle({2.3, 3.8, 40.4, 30.7}, {0.1, 0.2, 0.7, 0.35});
  canvas.fillRoundedRectangle({10.6, 12.2, 45.7, 40.3}, {12.4, CornerCurve::Continuous}, {0.9, 0.2, 0.1, 0.6});
  canvas.drawImage(quarteredImage(8), {20.2, 5.9, 30.5, 20.3}, ContentMode::ScaleToFill);
  return canvas;
}

TEST(Canvas, PixelsInsideTheClipDoNotDependOnTheShapeOfTheClip) {
  const Canvas whole = drawShapes(regionOf({0, 0, 60, 60}).get());
  for (int split = 1; split < 60; ++split) {
    const RegionHandle region = regionOf({0, 0, split, split});
    addTo(region.get(), {split, split / 2, 60 - split, 60 - split / 2});
    const Canvas part = drawShapes(region.get());
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 60; ++x) {
        if (cairo_region_contains_point(region.get(), x, y) == 0) continue;
        ASSERT_EQ(part.pixel(x, y), whole.pixel(x, y)) << x << ", " << y << ", split at " << split;
      }
    }
  }
}

TEST(Canvas, KeepsDrawingAfterInvalidArguments) {
  Canvas canvas({4, 4}, 1);
  canvas.save();
  canvas.scale(0, 1);
  canvas.fillRectangle({0, 0, 4, 4}, red);
  canvas.restore();
  canvas.save();
  canvas.translate(infinity, 0);
  canvas.fillRectangle({0, 0, 4, 4}, red);
  canvas.restore();
  canvas.fillRectangle({notANumber, 0, 4, 4}, red);
  canvas.fillRoundedRectangle({0, 0, -4, 4}, {2, CornerCurve::Continuous}, red);
  canvas.strokeLine({0, 0}, {4, 4}, -1, red);
  EXPECT_EQ(canvas.pixel(1, 1), 0U);
  canvas.fillRectangle({0, 0, 4, 4}, green);
  EXPECT_EQ(canvas.pixel(1, 1), 0xFF00FF00);
}

TEST(Canvas, RestoresTransformAndClip) {
  Canvas canvas({10, 10}, 1);
  canvas.save();
  canvas.translate(5, 5);
  canvas.scale(2, 2);
  canvas.clipRectangle({0, 0, 1, 1});
  canvas.fillRectangle({-10, -10, 20, 20}, red);
  canvas.restore();
  EXPECT_EQ(canvas.pixel(4, 5), 0U);
  EXPECT_EQ(canvas.pixel(6, 6), 0xFFFF0000);
  EXPECT_EQ(canvas.pixel(7, 7), 0U);
  canvas.fillRectangle({0, 0, 1, 1}, green);
  EXPECT_EQ(canvas.pixel(0, 0), 0xFF00FF00);
}

TEST(Canvas, IgnoresUnmatchedRestoreAndEndLayer) {
  Canvas canvas({4, 4}, 1);
  canvas.restore();
  canvas.endLayer();
  canvas.save();
  canvas.endLayer();
  canvas.beginLayer(0.5);
  canvas.restore();
  canvas.fillRectangle({0, 0, 4, 4}, white);
  canvas.endLayer();
  EXPECT_NEAR(alphaOf(canvas.pixel(1, 1)), 128, 1);
}

TEST(Canvas, ClearCanMakePixelsTransparent) {
  Canvas canvas({4, 4}, 1);
  canvas.fillRectangle({0, 0, 4, 4}, red);
  canvas.clipRectangle({0, 0, 2, 4});
  canvas.clear({0, 0, 0, 0});
  EXPECT_EQ(canvas.pixel(0, 0), 0U);
  EXPECT_EQ(canvas.pixel(3, 0), 0xFFFF0000);
}

TEST(Layer, OpacityAppliesToTheLayerAsAWhole) {
  Canvas canvas({4, 4}, 1);
  canvas.clear(white);
  canvas.beginLayer(0.5);
  canvas.fillRectangle({0, 0, 4, 4}, red);
  canvas.fillRectangle({0, 0, 4, 4}, black);
  canvas.endLayer();
  EXPECT_NEAR(redOf(canvas.pixel(1, 1)), 128, 1);
  EXPECT_EQ(redOf(canvas.pixel(1, 1)), greenOf(canvas.pixel(1, 1)));
}

TEST(Layer, EndLayerRestoresStatesSavedInside) {
  Canvas canvas({4, 4}, 1);
  for (const double alpha : {1.0, 0.5}) {
    canvas.beginLayer(alpha);
    canvas.save();
    canvas.translate(100, 0);
    canvas.endLayer();
  }
  canvas.fillRectangle({0, 0, 1, 1}, red);
  EXPECT_EQ(canvas.pixel(0, 0), 0xFFFF0000);
}

TEST(Layer, DrawsNothingIfItsOpacityIsNotPositive) {
  Canvas canvas({4, 4}, 1);
  for (const double alpha : {0.0, -1.0, notANumber}) {
    canvas.beginLayer(alpha);
    canvas.fillRectangle({0, 0, 4, 4}, red);
    canvas.endLayer();
  }
  EXPECT_EQ(canvas.pixel(1, 1), 0U);
}

TEST(Layer, NestedOpacitiesMultiply) {
  Canvas canvas({4, 4}, 1);
  canvas.beginLayer(0.5);
  canvas.beginLayer(0.5);
  canvas.fillRectangle({0, 0, 4, 4}, white);
  canvas.endLayer();
  canvas.endLayer();
  EXPECT_NEAR(alphaOf(canvas.pixel(1, 1)), 64, 1);
}

TEST(Layer, DoesNotChangeAntialiasedClipEdges) {
  const auto edge = [](double alpha) {
    Canvas canvas({4, 4}, 1);
    canvas.clipRectangle({0.5, 0, 3, 4});
    canvas.beginLayer(alpha);
    canvas.fillRectangle({0, 0, 4, 4}, white);
    canvas.endLayer();
    return alphaOf(canvas.pixel(0, 1));
  };
  EXPECT_NEAR(edge(1), 128, 1);
  EXPECT_NEAR(edge(0.999), 128, 2);
}

TEST(CaptureBeneath, IncludesOpenLayers) {
  Canvas canvas({8, 8}, 1);
  canvas.clear(black);
  canvas.clipRectangle({2, 2, 4, 4});
  canvas.beginLayer(0.5);
  canvas.fillRectangle({0, 0, 8, 8}, white);
  EXPECT_EQ(canvas.pixel(3, 3), 0xFF000000);
  const auto capture = Image::fromSurface(canvas.captureBeneath({1, 1, 4, 4}), 1);
  ASSERT_NE(capture, nullptr);
  EXPECT_EQ(capture->pixel(0, 0), 0xFF000000);
  EXPECT_NEAR(redOf(capture->pixel(2, 2)), 128, 1);
  canvas.endLayer();
  EXPECT_EQ(canvas.pixel(3, 3), capture->pixel(2, 2));
}

TEST(CaptureBeneath, IsTransparentOutsideTheCanvas) {
  Canvas canvas({4, 4}, 1);
  canvas.clear(red);
  const auto capture = Image::fromSurface(canvas.captureBeneath({-2, 0, 4, 4}), 1);
  ASSERT_NE(capture, nullptr);
  EXPECT_EQ(capture->pixel(1, 1), 0U);
  EXPECT_EQ(capture->pixel(2, 1), 0xFFFF0000);
  EXPECT_EQ(canvas.captureBeneath({0, 0, 0, 4}), nullptr);
}

TEST(CoveredPixels, FollowTransformAndClip) {
  Canvas canvas({100, 100}, 2);
  canvas.clipRectangle({0, 0, 50, 100});
  canvas.translate(10.25, 20);
  EXPECT_EQ(canvas.coveredPixels({0, 0, 100, 10}), (PixelRectangle{20, 40, 80, 20}));
  EXPECT_TRUE(canvas.coveredPixels({60, 0, 10, 10}).isEmpty());
  EXPECT_TRUE(canvas.coveredPixels({0, 0, 0, 10}).isEmpty());
}

TEST(CoveredPixels, AreInCanvasCoordinatesInsideALayer) {
  Canvas canvas({100, 100}, 2);
  canvas.clipRectangle({10, 10, 50, 50});
  canvas.beginLayer(0.5);
  EXPECT_EQ(canvas.coveredPixels({20, 20, 100, 10}), (PixelRectangle{40, 40, 80, 20}));
}

TEST(PlaceContent, FollowsTheContentMode) {
  const Size content{20, 10};
  const Rectangle bounds{100, 100, 40, 40};
  EXPECT_EQ(placeContent(content, bounds, ContentMode::ScaleToFill), bounds);
  EXPECT_EQ(placeContent(content, bounds, ContentMode::AspectFit), (Rectangle{100, 110, 40, 20}));
  EXPECT_EQ(placeContent(content, bounds, ContentMode::AspectFill), (Rectangle{80, 100, 80, 40}));
  EXPECT_EQ(placeContent(content, bounds, ContentMode::Center), (Rectangle{110, 115, 20, 10}));
  EXPECT_EQ(placeContent(content, bounds, ContentMode::Top), (Rectangle{110, 100, 20, 10}));
  EXPECT_EQ(placeContent(content, bounds, ContentMode::Left), (Rectangle{100, 115, 20, 10}));
  EXPECT_EQ(placeContent(content, bounds, ContentMode::BottomRight), (Rectangle{120, 130, 20, 10}));
  EXPECT_EQ(placeContent(content, bounds, static_cast<ContentMode>(99)), bounds);
}

TEST(DrawImage, DownscalingAveragesAllPixels) {
  // Alternating white and black lines of one pixel each become a uniform gray.
  Canvas stripes({64, 64}, 1);
  for (int line = 0; line < 64; line += 2) stripes.fillRectangle({0, 1.0 * line, 64, 1}, white);
  for (int line = 1; line < 64; line += 2) stripes.fillRectangle({0, 1.0 * line, 64, 1}, black);
  Canvas canvas({16, 16}, 1);
  canvas.drawImage(stripes.snapshot(), {0, 0, 16, 16}, ContentMode::ScaleToFill);
  for (int y = 0; y < 16; ++y) EXPECT_NEAR(redOf(canvas.pixel(8, y)), 128, 3) << y;
}

TEST(DrawImage, ScaledImageIsOpaqueUpToItsEdges) {
  Canvas source({50, 50}, 1);
  source.clear(red);
  for (const double side : {20.0, 50.0, 90.0}) {
    Canvas canvas({side, side}, 1);
    canvas.drawImage(source.snapshot(), {0, 0, side, side}, ContentMode::ScaleToFill);
    const int last = static_cast<int>(side) - 1;
    EXPECT_EQ(canvas.pixel(0, 0), 0xFFFF0000) << side;
    EXPECT_EQ(canvas.pixel(last, last), 0xFFFF0000) << side;
  }
}

TEST(DrawImage, NullImageOrEmptyRectangleDrawsNothing) {
  Canvas canvas({4, 4}, 1);
  canvas.drawImage(nullptr, {0, 0, 4, 4}, ContentMode::AspectFit);
  canvas.drawImage(quarteredImage(4), {0, 0, 0, 4}, ContentMode::AspectFit);
  EXPECT_EQ(canvas.pixel(1, 1), 0U);
}

// Aspect fill enlarges the strip to many times the size of the square canvas.
TEST(DrawImage, LongStripIsDrawnAndTheCanvasStaysUsable) {
  for (const int length : {600, 1000, 2200, 16000}) {
    for (const Size size : {Size{1.0 * length, 1}, Size{1, 1.0 * length}}) {
      Canvas strip(size, 1);
      strip.clear(red);
      Canvas canvas({20, 20}, 3);
      canvas.drawImage(strip.snapshot(), {0, 0, 20, 20}, ContentMode::AspectFill);
      EXPECT_EQ(canvas.pixel(30, 30), 0xFFFF0000) << length;
      canvas.fillRectangle({0, 0, 20, 20}, white);
      EXPECT_EQ(canvas.pixel(30, 30), 0xFFFFFFFF) << length;
    }
  }
}

TEST(DrawImage, UnscaledImageKeepsEveryPixel) {
  const auto image = quarteredImage(8, 2);
  Canvas canvas({10, 10}, 2);
  canvas.drawImage(image, {1, 1, 4, 4}, ContentMode::TopLeft);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) EXPECT_EQ(canvas.pixel(x + 2, y + 2), image->pixel(x, y));
  }
}

TEST(Canvas, EncodesItsPixelsAsPng) {
  Canvas canvas({4, 4}, 2);
  canvas.clear(blue);
  const auto image = decodeImage(canvas.pixelsAsPng());
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->pixelWidth(), 8);
  EXPECT_EQ(image->pixel(5, 5), 0xFF0000FF);
}

TEST(Canvas, SnapshotIsIndependentOfLaterDrawing) {
  Canvas canvas({4, 4}, 2);
  canvas.clear(blue);
  const auto before = canvas.snapshot();
  canvas.clear(red);
  EXPECT_EQ(before->pixel(1, 1), 0xFF0000FF);
  EXPECT_EQ(before->size(), (Size{4, 4}));
}

TEST(StrokeLine, CoversItsWidth) {
  Canvas canvas({10, 10}, 1);
  canvas.strokeLine({5, 2}, {5, 8}, 2, red);
  EXPECT_EQ(canvas.pixel(4, 5), 0xFFFF0000);
  EXPECT_EQ(canvas.pixel(5, 5), 0xFFFF0000);
  EXPECT_EQ(canvas.pixel(6, 5), 0U);
  EXPECT_EQ(canvas.pixel(5, 1), 0U);
}

}  // namespace
}  // namespace drawing
