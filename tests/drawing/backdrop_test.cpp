#include "simulator/drawing/material.hpp"

#include <cmath>
#include <limits>

#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

constexpr CornerShape squareCorners{};

// The left half is black, the right half white.
Canvas blackAndWhite(double width, double height, double scale) {
  Canvas canvas({width, height}, scale);
  canvas.clear(black);
  canvas.fillRectangle({width / 2, 0, width / 2, height}, white);
  return canvas;
}

Canvas filledWith(const Color& color) {
  Canvas canvas({60, 60}, 2);
  canvas.clear(color);
  return canvas;
}

void blurAll(Canvas& canvas, BlurStyle style, Appearance appearance = Appearance::Light, double alpha = 1) {
  drawMaterial(canvas, {0, 0, 1000, 1000}, squareCorners, style, appearance, alpha);
}

TEST(Backdrop, UniformGrayStaysUniform) {
  Canvas canvas = filledWith({0.5, 0.5, 0.5, 1});
  blurAll(canvas, BlurStyle::Light);
  const std::uint32_t first = canvas.pixel(0, 0);
  for (int y = 0; y < canvas.pixelHeight(); ++y) {
    for (int x = 0; x < canvas.pixelWidth(); ++x) ASSERT_EQ(canvas.pixel(x, y), first) << x << " " << y;
  }
  EXPECT_EQ(alphaOf(first), 255);
}

TEST(Backdrop, StylesDifferInBrightness) {
  const auto brightness = [](BlurStyle style, Appearance appearance) {
    Canvas canvas = filledWith({0.5, 0.5, 0.5, 1});
    blurAll(canvas, style, appearance);
    return redOf(canvas.pixel(30, 30));
  };
  EXPECT_GT(brightness(BlurStyle::ExtraLight, Appearance::Light), brightness(BlurStyle::Light, Appearance::Light));
  EXPECT_GT(brightness(BlurStyle::Light, Appearance::Light), 128);
  EXPECT_LT(brightness(BlurStyle::Dark, Appearance::Light), 80);
  EXPECT_GT(brightness(BlurStyle::Regular, Appearance::Light), 160);
  EXPECT_LT(brightness(BlurStyle::Regular, Appearance::Dark), 80);
  EXPECT_EQ(brightness(BlurStyle::Dark, Appearance::Light), brightness(BlurStyle::Dark, Appearance::Dark));
}

// Returns the relative luminance of a color, from which the contrast of a text is computed.
double relativeLuminance(double red, double green, double blue) {
  const auto linear = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

double contrast(double lighter, double darker) { return (lighter + 0.05) / (darker + 0.05); }

// The background of a dark banner, which is behind its blur, is black with an opacity of 0.3. The background of its
// buttons is white with an opacity of 0.1.
TEST(Backdrop, RedAndWhiteTextAreReadableOnDarkButtonsOverAnyBackdrop) {
  for (int corner = 0; corner < 8; ++corner) {
    Canvas canvas = filledWith({corner & 1 ? 1.0 : 0, corner & 2 ? 1.0 : 0, corner & 4 ? 1.0 : 0, 1});
    canvas.fillRectangle({0, 0, 60, 60}, {0, 0, 0, 0.3});
    blurAll(canvas, BlurStyle::Dark);
    canvas.fillRectangle({0, 0, 60, 60}, {1, 1, 1, 0.1});
    const std::uint32_t pixel = canvas.pixel(30, 30);
    const auto channel = [pixel](int shift) { return (pixel >> shift & 0xFF) / 255.0; };
    const double button = relativeLuminance(channel(16), channel(8), channel(0));
    EXPECT_GE(contrast(relativeLuminance(1, 0, 0), button), 3) << corner;
    EXPECT_GE(contrast(1, button), 4.5) << corner;
  }
}

// The backdrop must remain visible.
TEST(Backdrop, BrighterBackdropsLookBrighterThroughDarkMaterial) {
  int previous = -1;
  for (const double gray : {0.0, 0.1, 0.2, 0.4, 0.7, 1.0}) {
    Canvas canvas = filledWith({gray, gray, gray, 1});
    blurAll(canvas, BlurStyle::Dark);
    EXPECT_GT(redOf(canvas.pixel(30, 30)), previous) << gray;
    previous = redOf(canvas.pixel(30, 30));
  }
}

TEST(Backdrop, ConvertsThePlatformsStyleNumbers) {
  EXPECT_EQ(blurStyle(0), BlurStyle::ExtraLight);
  EXPECT_EQ(blurStyle(1), BlurStyle::Light);
  EXPECT_EQ(blurStyle(2), BlurStyle::Dark);
  EXPECT_EQ(blurStyle(4), BlurStyle::Regular);
  EXPECT_EQ(blurStyle(77), BlurStyle::Regular);
}

TEST(Backdrop, IncreasesSaturation) {
  Canvas canvas = filledWith({0.6, 0.4, 0.4, 1});
  blurAll(canvas, BlurStyle::Light);
  const std::uint32_t pixel = canvas.pixel(30, 30);
  // Without higher saturation, the tint would reduce the difference of 51 levels to 70 percent.
  EXPECT_GT(redOf(pixel) - greenOf(pixel), 55);
}

TEST(Backdrop, BlursAnEdgeWithAGaussian) {
  constexpr double scale = 2, width = 300;
  Canvas canvas = blackAndWhite(width, 40, scale);
  blurAll(canvas, BlurStyle::Light);
  const int center = static_cast<int>(width * scale) / 2;
  for (int x = center - 150; x < center + 150; ++x) {
    const double distance = (x + 0.5 - center) / (30 * scale);
    const double blurred = 0.5 * (1 + std::erf(distance / std::sqrt(2.0)));
    EXPECT_NEAR(redOf(canvas.pixel(x, 20)), 255 * (blurred * 0.7 + 0.3), 4) << x;
  }
}

TEST(Backdrop, BlurIsSmooth) {
  Canvas canvas = blackAndWhite(300, 100, 2);
  canvas.fillRectangle({0, 50, 300, 50}, {0.2, 0.7, 0.4, 1});
  blurAll(canvas, BlurStyle::Light);
  for (int y = 1; y < canvas.pixelHeight(); ++y) {
    for (int x = 1; x < canvas.pixelWidth(); ++x) {
      ASSERT_LE(std::abs(greenOf(canvas.pixel(x, y)) - greenOf(canvas.pixel(x - 1, y))), 3) << x << " " << y;
      ASSERT_LE(std::abs(greenOf(canvas.pixel(x, y)) - greenOf(canvas.pixel(x, y - 1))), 3) << x << " " << y;
    }
  }
}

TEST(Backdrop, BlurOfAnAreaEqualsTheSameAreaOfAFullBlur) {
  Canvas whole = blackAndWhite(120, 120, 2);
  Canvas part = blackAndWhite(120, 120, 2);
  blurAll(whole, BlurStyle::Dark);
  drawMaterial(part, {33.5, 21, 51, 40.5}, squareCorners, BlurStyle::Dark, Appearance::Light, 1);
  for (int y = 42; y < 123; ++y) {
    for (int x = 67; x < 169; ++x) ASSERT_EQ(part.pixel(x, y), whole.pixel(x, y)) << x << " " << y;
  }
  EXPECT_EQ(part.pixel(66, 60), 0xFF000000);
  EXPECT_EQ(part.pixel(169, 60), 0xFFFFFFFF);
  EXPECT_EQ(part.pixel(100, 41), 0xFF000000);
  EXPECT_EQ(part.pixel(100, 123), 0xFF000000);
}

TEST(Backdrop, IsClippedToItsRoundedCorners) {
  Canvas canvas = filledWith(white);
  drawMaterial(canvas, {10, 10, 40, 40}, {15, CornerCurve::Continuous}, BlurStyle::Dark, Appearance::Light, 1);
  EXPECT_EQ(canvas.pixel(21, 21), 0xFFFFFFFF);
  EXPECT_LT(redOf(canvas.pixel(60, 60)), 160);
}

TEST(Backdrop, AppliesItsOpacity) {
  Canvas opaque = filledWith(black), half = filledWith(black), none = filledWith(black);
  blurAll(opaque, BlurStyle::ExtraLight);
  blurAll(half, BlurStyle::ExtraLight, Appearance::Light, 0.5);
  blurAll(none, BlurStyle::ExtraLight, Appearance::Light, 0);
  blurAll(none, BlurStyle::ExtraLight, Appearance::Light, std::numeric_limits<double>::quiet_NaN());
  EXPECT_NEAR(redOf(half.pixel(5, 5)), redOf(opaque.pixel(5, 5)) / 2.0, 1);
  EXPECT_EQ(none.pixel(5, 5), 0xFF000000);
}

TEST(Backdrop, BlursTheContentBeneathTheLayerThatContainsIt) {
  Canvas plain = blackAndWhite(120, 60, 2), layered = blackAndWhite(120, 60, 2);
  drawMaterial(plain, {20, 10, 80, 40}, squareCorners, BlurStyle::Light, Appearance::Light, 1);
  layered.clipRectangle({10, 0, 100, 60});
  layered.beginLayer(0.5);
  drawMaterial(layered, {20, 10, 80, 40}, squareCorners, BlurStyle::Light, Appearance::Light, 1);
  layered.endLayer();
  const Canvas sharp = blackAndWhite(120, 60, 2);
  for (int x = 0; x < 240; ++x) {
    const int blended = (redOf(plain.pixel(x, 60)) + redOf(sharp.pixel(x, 60))) / 2;
    EXPECT_NEAR(redOf(layered.pixel(x, 60)), blended, 2) << x;
  }
}

TEST(Backdrop, FollowsTheTransform) {
  Canvas direct = blackAndWhite(120, 60, 2), moved = blackAndWhite(120, 60, 2);
  drawMaterial(direct, {20, 10, 80, 40}, squareCorners, BlurStyle::Light, Appearance::Light, 1);
  moved.translate(15, 5);
  drawMaterial(moved, {5, 5, 80, 40}, squareCorners, BlurStyle::Light, Appearance::Light, 1);
  EXPECT_EQ(direct.pixelsAsPng(), moved.pixelsAsPng());
}

TEST(Backdrop, EmptyOrInvalidAreaDrawsNothing) {
  Canvas canvas = filledWith(white);
  for (const Rectangle& area : {Rectangle{0, 0, 0, 10}, Rectangle{-50, 0, 20, 20}, Rectangle{500, 500, 20, 20},
                                Rectangle{0, std::numeric_limits<double>::quiet_NaN(), 10, 10}}) {
    drawMaterial(canvas, area, squareCorners, BlurStyle::Dark, Appearance::Light, 1);
  }
  for (int y = 0; y < 120; ++y) {
    for (int x = 0; x < 120; ++x) ASSERT_EQ(canvas.pixel(x, y), 0xFFFFFFFF);
  }
}

TEST(Backdrop, WorksOnCanvasesOfAnySize) {
  for (const Size& size : {Size{1, 1}, Size{3, 5}, Size{4, 4}, Size{1, 333}, Size{97, 2}}) {
    Canvas canvas(size, 1);
    canvas.clear(white);
    blurAll(canvas, BlurStyle::Dark);
    const int last = redOf(canvas.pixel(canvas.pixelWidth() - 1, canvas.pixelHeight() - 1));
    EXPECT_LT(last, 120);
    EXPECT_EQ(redOf(canvas.pixel(0, 0)), last);
  }
}

TEST(Backdrop, TransparentCanvasStaysTransparent) {
  Canvas canvas({40, 40}, 1);
  blurAll(canvas, BlurStyle::Light);
  EXPECT_EQ(canvas.pixel(20, 20), 0U);
}

}  // namespace
}  // namespace drawing
