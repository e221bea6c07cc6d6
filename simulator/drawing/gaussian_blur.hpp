// Computes a wide Gaussian blur at a quarter of the resolution, and interpolates the result to full resolution.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/drawing/canvas.hpp"

namespace drawing {

// A cell is the average of 4 by 4 pixels. The order of its channels in memory is that of a premultiplied ARGB32 pixel
// on a little-endian machine. Its precision is 32 times that of a pixel: 32 units are one level of a pixel's channel.
struct BlurredCell {
  std::uint16_t blue;
  std::uint16_t green;
  std::uint16_t red;
  std::uint16_t alpha;
};
inline constexpr int unitsPerLevel = 32;

// A rectangle of cells. Column and row are relative to the corner of the canvas. If they were relative to the blurred
// area, a backdrop would flicker when the area moves by single pixels.
struct BlurredCells {
  int column = 0;
  int row = 0;
  int columns = 0;
  int rows = 0;
  std::vector<BlurredCell> cells;
};

// Returns the maximum distance from an area, in pixels, at which a pixel affects the blur of the area.
int blurMargin(double sigmaInPixels);

// Blurs the visible content of the canvas, including open layers. The result extends one cell beyond the area on each
// side. It is empty if the area is empty or too far outside the canvas.
BlurredCells blurBeneath(const Canvas& canvas, const PixelRectangle& area, double sigmaInPixels);

// Interpolates the cells to the pixels of an area. The cells must extend one cell beyond the area on each side. A row
// of the target has area.width pixels.
void interpolate(const BlurredCells& source, const PixelRectangle& area, std::span<std::uint32_t> target);

}  // namespace drawing
