#include "simulator/drawing/material.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "simulator/drawing/corner_path.hpp"
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

// Four values, one for each of four cells.
using Float4 [[gnu::vector_size(16)]] = float;
using Integer4 [[gnu::vector_size(16)]] = std::int32_t;

Float4 luminanceOf(const std::array<Float4, 3>& channels) {
  return luminanceWeights[0] * channels[0] + luminanceWeights[1] * channels[1] + luminanceWeights[2] * channels[2];
}

Float4 clamped(const Float4& values, const Float4& max) {
  const Float4 positive = values < 0.0F ? Float4{} : values;
  return max < positive ? max : positive;
}

// Saturates, tints and darkens four premultiplied cells. No channel exceeds the alpha.
void saturateAndTint(std::span<BlurredCell, 4> cells, const Material& material) {
  const auto gather = [&cells](auto BlurredCell::*channel) {
    const auto value = [&](std::size_t index) { return static_cast<float>(cells[index].*channel); };
    return Float4{value(0), value(1), value(2), value(3)};
  };
  std::array<Float4, 3> channels{gather(&BlurredCell::blue), gather(&BlurredCell::green), gather(&BlurredCell::red)};
  const Float4 alpha = gather(&BlurredCell::alpha);
  const Float4 luminance = luminanceOf(channels);
  for (Float4& channel : channels) {
    const Float4 saturated = clamped(luminance + saturation * (channel - luminance), alpha);
    channel = saturated + (material.tintGray * alpha - saturated) * material.tintOpacity;
  }
  const Float4 nonzeroAlpha = alpha == 0.0F ? Float4{} + 1.0F : alpha;
  const Float4 divisor = 1.0F + material.darkening * luminanceOf(channels) / nonzeroAlpha;
  // Truncating a positive value plus one half rounds it to the nearest integer.
  constexpr float half = 0.5F;
  std::array<Integer4, 3> result;
  for (std::size_t index = 0; index < channels.size(); ++index)
    result[index] = __builtin_convertvector(channels[index] / divisor + half, Integer4);
  for (std::size_t index = 0; index < cells.size(); ++index) {
    cells[index].blue = static_cast<std::uint16_t>(result[0][index]);
    cells[index].green = static_cast<std::uint16_t>(result[1][index]);
    cells[index].red = static_cast<std::uint16_t>(result[2][index]);
  }
}

void saturateAndTint(std::span<BlurredCell> cells, const Material& material) {
  for (; cells.size() >= 4; cells = cells.subspan(4)) saturateAndTint(cells.first<4>(), material);
  std::array<BlurredCell, 4> last{};
  std::ranges::copy(cells, last.begin());
  saturateAndTint(std::span<BlurredCell, 4>(last), material);
  std::copy_n(last.begin(), cells.size(), cells.begin());
}

// The number of rows that are painted at a time. This number of rows fits into the processor's cache.
constexpr int bandHeight = 32;

// Paints the pixels of an area inside the clip.
void paintArea(cairo_t* context, const BlurredCells& cells, const PixelRectangle& area, int rowsAtATime, double alpha) {
  if (area.isEmpty()) return;
  const SurfaceHandle pixels(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, area.width, std::min(area.height, rowsAtATime)));
  if (cairo_surface_status(pixels.get()) != CAIRO_STATUS_SUCCESS) return;
  // The rows of pixels are adjacent in memory, because a row of 32-bit pixels has no padding.
  auto* data = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(pixels.get()));
  for (int y = 0; y < area.height; y += rowsAtATime) {
    const PixelRectangle band = {area.x, area.y + y, area.width, std::min(rowsAtATime, area.height - y)};
    interpolate(cells, band, {data, static_cast<std::size_t>(band.width) * static_cast<std::size_t>(band.height)});
    cairo_surface_mark_dirty(pixels.get());
    cairo_save(context);
    cairo_set_source_surface(context, pixels.get(), band.x, band.y);
    cairo_new_path(context);
    cairo_rectangle(context, band.x, band.y, band.width, band.height);
    cairo_clip(context);
    cairo_paint_with_alpha(context, alpha);
    cairo_restore(context);
  }
}

// Only the areas at the border are clipped to the curve, because cairo composites each row of a curved clip separately.
void paintCells(Canvas& canvas, const BlurredCells& cells, const PixelRectangle& covered, const Rectangle& area,
                const CornerShape& corners, double alpha) {
  cairo_t* const context = canvas.context();
  const DividedRectangle parts = divideRoundedRectangle(context, area, corners);
  canvas.save();
  cairo_matrix_t transform;
  cairo_get_matrix(context, &transform);
  cairo_identity_matrix(context);
  for (const PixelRectangle& part : parts.inside)
    paintArea(context, cells, intersection(part, covered), bandHeight, alpha);
  cairo_set_matrix(context, &transform);
  canvas.clipRoundedRectangle(area, corners);
  cairo_identity_matrix(context);
  for (const PixelRectangle& part : parts.border) {
    const PixelRectangle painted = intersection(part, covered);
    paintArea(context, cells, painted, std::max(painted.height, 1), alpha);
  }
  canvas.restore();
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
  saturateAndTint(cells.cells, drawn);

  paintCells(canvas, cells, covered, area, corners, std::min(alpha, 1.0));
}

int materialBlurMargin(BlurStyle style, Appearance appearance, double pixelsPerPoint) {
  return blurMargin(material(style, appearance).sigma * pixelsPerPoint);
}

}  // namespace drawing
