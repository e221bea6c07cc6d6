#include "simulator/drawing/material.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "simulator/drawing/gaussian_blur.hpp"

namespace drawing {
namespace {

constexpr float saturation = 1.8F;

// The weights of blue, green and red, in this order, in the luminance of a color.
constexpr std::array<float, 3> luminanceWeights{0.0722F, 0.7152F, 0.2126F};

struct Material {
  double sigma;       // the standard deviation of the Gaussian blur, in points
  float tintGray;     // from 0 (black) to 1 (white)
  float tintOpacity;  // from 0 to 1
  // How much a bright backdrop is darkened. The color is divided by 1 plus this multiple of its luminance.
  float darkening = 0;
};

constexpr Material extraLight{20, 0.97F, 0.82F};
constexpr Material light{30, 1.00F, 0.30F};
// Over a white backdrop, red text has a contrast of 3:1 on this material, even on a translucent button. A dark backdrop
// is darkened only a little.
constexpr Material dark{20, 0.11F, 0.73F, 4.4F};
constexpr Material regularInLight{25, 0.97F, 0.50F};
constexpr Material regularInDark{25, 0.14F, 0.70F};

const Material& material(BlurStyle style, Appearance appearance) {
  switch (style) {
    case BlurStyle::ExtraLight:
      return extraLight;
    case BlurStyle::Light:
      return light;
    case BlurStyle::Dark:
      return dark;
    case BlurStyle::Regular:
      break;
  }
  return appearance == Appearance::Dark ? regularInDark : regularInLight;
}

float luminanceOf(const std::array<float, 3>& channels) {
  return luminanceWeights[0] * channels[0] + luminanceWeights[1] * channels[1] + luminanceWeights[2] * channels[2];
}

// Saturates, tints and darkens a premultiplied cell. No channel exceeds the alpha.
void saturateAndTint(BlurredCell& cell, const Material& material) {
  if (cell.alpha == 0) return;
  std::array<float, 3> channels{static_cast<float>(cell.blue), static_cast<float>(cell.green),
                                static_cast<float>(cell.red)};
  const auto alpha = static_cast<float>(cell.alpha);
  const float luminance = luminanceOf(channels);
  for (float& channel : channels) {
    const float saturated = std::clamp(luminance + saturation * (channel - luminance), 0.0F, alpha);
    channel = saturated + (material.tintGray * alpha - saturated) * material.tintOpacity;
  }
  const float divisor = 1 + material.darkening * luminanceOf(channels) / alpha;
  // Truncating a positive value plus one half rounds it to the nearest integer.
  constexpr float half = 0.5F;
  std::array<std::uint16_t, 3> result{};
  for (std::size_t index = 0; index < channels.size(); ++index)
    result[index] = static_cast<std::uint16_t>(channels[index] / divisor + half);
  cell = {result[0], result[1], result[2], cell.alpha};
}

// The number of rows that are painted at a time. This number of rows fits into the processor's cache.
constexpr int bandHeight = 32;

void paintBand(cairo_t* context, cairo_surface_t* pixels, const PixelRectangle& band, double alpha) {
  cairo_surface_mark_dirty(pixels);
  cairo_set_source_surface(context, pixels, band.x, band.y);
  cairo_save(context);
  cairo_new_path(context);
  cairo_rectangle(context, band.x, band.y, band.width, band.height);
  cairo_clip(context);
  cairo_paint_with_alpha(context, alpha);
  cairo_restore(context);
}

void paintCells(cairo_t* context, const BlurredCells& cells, const PixelRectangle& covered, double alpha) {
  SurfaceHandle pixels(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, covered.width, std::min(covered.height, bandHeight)));
  if (cairo_surface_status(pixels.get()) != CAIRO_STATUS_SUCCESS) return;
  // The rows of pixels are adjacent in memory, because a row of 32-bit pixels has no padding.
  auto* data = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(pixels.get()));
  for (int y = 0; y < covered.height; y += bandHeight) {
    const PixelRectangle band = {covered.x, covered.y + y, covered.width, std::min(bandHeight, covered.height - y)};
    interpolate(cells, band, {data, static_cast<std::size_t>(band.width) * static_cast<std::size_t>(band.height)});
    paintBand(context, pixels.get(), band, alpha);
  }
}

}  // namespace

BlurStyle blurStyle(int number) {
  for (const BlurStyle style : {BlurStyle::ExtraLight, BlurStyle::Light, BlurStyle::Dark}) {
    if (static_cast<int>(style) == number) return style;
  }
  return BlurStyle::Regular;
}

void drawMaterial(Canvas& canvas, const Rectangle& area, const CornerShape& corners, BlurStyle style,
                  Appearance appearance, double alpha) {
  const PixelRectangle covered = canvas.coveredPixels(area);
  if (covered.isEmpty() || !(alpha > 0)) return;
  const Material& drawn = material(style, appearance);
  BlurredCells cells = blurBeneath(canvas, covered, drawn.sigma * canvas.pixelsPerPoint());
  if (cells.cells.empty()) return;
  for (BlurredCell& cell : cells.cells) saturateAndTint(cell, drawn);

  canvas.save();
  canvas.clipRoundedRectangle(area, corners);
  cairo_identity_matrix(canvas.context());
  paintCells(canvas.context(), cells, covered, std::min(alpha, 1.0));
  canvas.restore();
}

int materialBlurMargin(BlurStyle style, Appearance appearance, double pixelsPerPoint) {
  return blurMargin(material(style, appearance).sigma * pixelsPerPoint);
}

}  // namespace drawing
