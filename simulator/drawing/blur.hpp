// A wide blur at a quarter of the resolution, and the way back to pixels.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/drawing/canvas.hpp"

namespace drawing {

// Four channels in the memory order of a premultiplied ARGB32 pixel on a little-endian machine, in 32nds of a level.
struct BlurredCell {
  std::uint16_t blue;
  std::uint16_t green;
  std::uint16_t red;
  std::uint16_t alpha;
};
inline constexpr int levelsPerUnit = 32;

// Cells of four by four pixels. They are counted from the canvas's corner whatever is blurred, so that a backdrop that
// moves by a pixel does not shimmer.
struct BlurredCells {
  int column = 0;
  int row = 0;
  int columns = 0;
  int rows = 0;
  std::vector<BlurredCell> cells;
};

// How far beyond the area's edge pixels have a part in its blur, at most.
int blurReach(double sigmaInPixels);

// Blurs what is to be seen beneath these pixels of the canvas. The cells reach one further on each side.
BlurredCells blurBeneath(const Canvas& canvas, const PixelRectangle& area, double sigmaInPixels);

// Interpolates the cells to these pixels, which they must cover. A row of the target has area.width pixels.
void interpolate(const BlurredCells& source, const PixelRectangle& area, std::span<std::uint32_t> target);

}  // namespace drawing
