#include "simulator/drawing/gaussian_blur.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace drawing {
namespace {

constexpr int cellSide = 4;
constexpr int boxPasses = 3;

// The maximum radius of a box blur, in cells. A larger radius would make sums overflow 32 bits: a cell is the sum of 16
// pixels, and each of the three passes multiplies this sum by the box width.
constexpr int maxRadius = 38;
static_assert(255LL * 16 * (2 * maxRadius + 1) * (2 * maxRadius + 1) * (2 * maxRadius + 1) < 1LL << 31);

using Vector4 [[gnu::vector_size(16)]] = std::int32_t;
using Float4 [[gnu::vector_size(16)]] = float;
using Cell [[gnu::vector_size(8)]] = std::uint16_t;
using CellPair [[gnu::vector_size(16)]] = std::uint16_t;
using Bytes [[gnu::vector_size(16)]] = std::uint8_t;

int floorDivide(int value, int divisor) { return value >= 0 ? value / divisor : -((divisor - 1 - value) / divisor); }

// Returns the radius of a box blur. Three box blurs of this radius have approximately the variance of the Gaussian
// blur.
int boxRadius(double sigmaInCells) {
  const double width = std::sqrt(4 * sigmaInCells * sigmaInCells + 1);
  return std::clamp(static_cast<int>(std::lround((width - 1) / 2)), 1, maxRadius);
}

// The pixels that the blur reads, and the area of the canvas that contains them.
struct Source {
  SurfaceHandle surface;
  PixelRectangle area;

  const std::uint8_t* row(int y) const {
    const int inside = std::clamp(y - area.y, 0, area.height - 1);
    return cairo_image_surface_get_data(surface.get()) +
           static_cast<std::ptrdiff_t>(inside) * cairo_image_surface_get_stride(surface.get());
  }
};

// Captures those pixels of the cells that are on the canvas.
Source captureCells(const Canvas& canvas, int column, int row, int columns, int rows) {
  PixelRectangle area;
  area.x = std::max(column * cellSide, 0);
  area.y = std::max(row * cellSide, 0);
  area.width = std::min((column + columns) * cellSide, canvas.pixelWidth()) - area.x;
  area.height = std::min((row + rows) * cellSide, canvas.pixelHeight()) - area.y;
  return {canvas.captureBeneath(area), area};
}

// Adds four rows of pixels, separately for each channel.
void addRows(const Source& source, int firstRow, std::vector<std::uint16_t>& sums) {
  const std::uint8_t* rows[cellSide];
  for (int index = 0; index < cellSide; ++index) rows[index] = source.row(firstRow + index);
  for (std::size_t index = 0; index < sums.size(); ++index) {
    sums[index] = static_cast<std::uint16_t>(rows[0][index] + rows[1][index] + rows[2][index] + rows[3][index]);
  }
}

// Adds four adjacent pixels, each of which is the sum of four rows. The result fits into 16 bits: 255 * 16 = 4080.
Vector4 sumOfFourPixels(const std::uint16_t* pixels) {
  CellPair first;
  CellPair second;
  std::memcpy(&first, pixels, sizeof first);
  std::memcpy(&second, pixels + 8, sizeof second);
  const CellPair pairs = first + second;
  Cell left;
  Cell right;
  std::memcpy(&left, &pairs, sizeof left);
  std::memcpy(&right, reinterpret_cast<const char*>(&pairs) + sizeof left, sizeof right);
  return __builtin_convertvector(left + right, Vector4);
}

// Adds the pixels of a cell. Outside the captured area, the nearest captured pixel is used.
Vector4 sumOfCell(const std::vector<std::uint16_t>& sums, const Source& source, int column) {
  const int left = column * cellSide - source.area.x;
  if (left >= 0 && left + cellSide <= source.area.width)
    return sumOfFourPixels(&sums[static_cast<std::size_t>(left) * 4]);
  Vector4 sum{};
  for (int index = 0; index < cellSide; ++index) {
    const int x = std::clamp(column * cellSide + index - source.area.x, 0, source.area.width - 1);
    const std::uint16_t* pixel = &sums[static_cast<std::size_t>(x) * 4];
    sum += Vector4{pixel[0], pixel[1], pixel[2], pixel[3]};
  }
  return sum;
}

// Replaces each element by the sum of a window around it, computed as a running sum. Returns the new length of the
// line, which is shorter by twice the radius.
std::size_t boxPass(Vector4* line, std::size_t count, std::size_t radius) {
  const std::size_t width = 2 * radius + 1;
  Vector4 sum{};
  for (std::size_t index = 0; index + 1 < width; ++index) sum += line[index];
  const std::size_t shorter = count - 2 * radius;
  for (std::size_t index = 0; index < shorter; ++index) {
    sum += line[index + width - 1];
    const Vector4 first = line[index];
    line[index] = sum;
    sum -= first;
  }
  return shorter;
}

void blurLine(std::vector<Vector4>& line, std::size_t radius) {
  std::size_t count = line.size();
  for (int pass = 0; pass < boxPasses; ++pass) count = boxPass(line.data(), count, radius);
}

// Scales sums to 16-bit cells, with rounding.
Cell scaled(const Vector4& sums, float factor) {
  const Float4 values = __builtin_convertvector(sums, Float4) * factor + 0.5F;
  return __builtin_convertvector(__builtin_convertvector(values, Vector4), Cell);
}

// Returns the factor that converts the sums of three box blurs to an average.
float averagingFactor(int radius) {
  const auto width = static_cast<float>(2 * radius + 1);
  return 1 / (width * width * width);
}

// Reduces the source to rows of cells and blurs each row. The result has 2 * boxPasses * radius extra rows, because the
// column blur that follows removes that many.
std::vector<Cell> blurRows(const Source& source, const BlurredCells& wanted, int radius) {
  const int margin = boxPasses * radius;
  const int rows = wanted.rows + 2 * margin;
  const auto columns = static_cast<std::size_t>(wanted.columns);
  std::vector<Cell> result(static_cast<std::size_t>(rows) * columns);
  std::vector<std::uint16_t> sums(static_cast<std::size_t>(source.area.width) * 4);
  std::vector<Vector4> line(columns + 2 * static_cast<std::size_t>(margin));
  const int firstSourceRow = source.area.y / cellSide;
  const int lastSourceRow = (source.area.y + source.area.height - 1) / cellSide;
  int previous = -1;
  for (int row = 0; row < rows; ++row) {
    Cell* target = &result[static_cast<std::size_t>(row) * columns];
    const int sourceRow = std::clamp(wanted.row - margin + row, firstSourceRow, lastSourceRow);
    if (sourceRow == previous) {
      std::copy_n(target - columns, columns, target);
      continue;
    }
    previous = sourceRow;
    addRows(source, sourceRow * cellSide, sums);
    for (std::size_t index = 0; index < line.size(); ++index) {
      line[index] = sumOfCell(sums, source, wanted.column - margin + static_cast<int>(index));
    }
    blurLine(line, static_cast<std::size_t>(radius));
    for (std::size_t index = 0; index < columns; ++index) target[index] = scaled(line[index], averagingFactor(radius));
  }
  return result;
}

void blurColumns(const std::vector<Cell>& source, BlurredCells& target, int radius) {
  const auto columns = static_cast<std::size_t>(target.columns);
  const auto rows = static_cast<std::size_t>(target.rows);
  const float factor = averagingFactor(radius) * unitsPerLevel / (cellSide * cellSide);
  std::vector<Vector4> line(source.size() / columns);
  target.cells.resize(rows * columns);
  for (std::size_t column = 0; column < columns; ++column) {
    for (std::size_t row = 0; row < line.size(); ++row) {
      line[row] = __builtin_convertvector(source[row * columns + column], Vector4);
    }
    blurLine(line, static_cast<std::size_t>(radius));
    for (std::size_t row = 0; row < rows; ++row) {
      const Cell cell = scaled(line[row], factor);
      std::memcpy(&target.cells[row * columns + column], &cell, sizeof cell);
    }
  }
}

// How to interpolate a pixel, whose center lies between the centers of two cells. A phase contains the weights of these
// two cells, in eighths, and the offset of the first cell from the cell that contains the pixel. The array contains one
// phase for each position of a pixel in its cell.
struct Phase {
  std::uint16_t first;
  std::uint16_t second;
  int offset;
};
constexpr Phase phases[cellSide] = {{3, 5, -1}, {1, 7, -1}, {7, 1, 0}, {5, 3, 0}};

// Interpolates between two rows of cells. The result has the units of the cells.
void interpolateRows(const BlurredCell* first, const BlurredCell* second, const Phase& phase,
                     std::vector<Cell>& target) {
  const auto* above = reinterpret_cast<const std::uint16_t*>(first);
  const auto* below = reinterpret_cast<const std::uint16_t*>(second);
  auto* between = reinterpret_cast<std::uint16_t*>(target.data());
  for (std::size_t index = 0; index < target.size() * 4; ++index) {
    between[index] = static_cast<std::uint16_t>((above[index] * phase.first + below[index] * phase.second + 4) >> 3);
  }
}

CellPair duplicated(const Cell& cell) {
  const CellPair pair = __builtin_shufflevector(cell, cell, 0, 1, 2, 3, 4, 5, 6, 7);
  return pair;
}

CellPair weightPair(std::uint16_t first, std::uint16_t second) {
  return CellPair{first, first, first, first, second, second, second, second};
}

CellPair levels(const CellPair& eighths) {
  constexpr std::uint16_t level = unitsPerLevel * 8;
  return (eighths + level / 2) / level;
}

// Computes the four pixels of each cell, except for the first and the last cell.
void interpolateLine(const std::vector<Cell>& line, std::uint32_t* target) {
  CellPair before = duplicated(line[0]);
  CellPair cell = duplicated(line[1]);
  for (std::size_t index = 1; index + 1 < line.size(); ++index, target += cellSide) {
    const CellPair after = duplicated(line[index + 1]);
    const CellPair left = levels(before * weightPair(phases[0].first, phases[1].first) +
                                 cell * weightPair(phases[0].second, phases[1].second));
    const CellPair right = levels(cell * weightPair(phases[2].first, phases[3].first) +
                                  after * weightPair(phases[2].second, phases[3].second));
    const Bytes bytes = __builtin_convertvector(
        __builtin_shufflevector(left, right, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15), Bytes);
    std::memcpy(target, &bytes, sizeof bytes);
    before = cell;
    cell = after;
  }
}

}  // namespace

int blurMargin(double sigmaInPixels) { return (boxPasses * boxRadius(sigmaInPixels / cellSide) + 2) * cellSide; }

BlurredCells blurBeneath(const Canvas& canvas, const PixelRectangle& area, double sigmaInPixels) {
  if (area.isEmpty()) return {};
  const int radius = boxRadius(sigmaInPixels / cellSide);
  const int margin = boxPasses * radius;
  BlurredCells result;
  result.column = floorDivide(area.x, cellSide) - 1;
  result.row = floorDivide(area.y, cellSide) - 1;
  result.columns = floorDivide(area.x + area.width - 1, cellSide) + 2 - result.column;
  result.rows = floorDivide(area.y + area.height - 1, cellSide) + 2 - result.row;
  const Source source = captureCells(canvas, result.column - margin, result.row - margin, result.columns + 2 * margin,
                                     result.rows + 2 * margin);
  if (source.area.isEmpty()) return {};
  blurColumns(blurRows(source, result, radius), result, radius);
  return result;
}

void interpolate(const BlurredCells& source, const PixelRectangle& area, std::span<std::uint32_t> target) {
  const auto rowLength = static_cast<std::size_t>(source.columns);
  const int firstColumn = floorDivide(area.x, cellSide) - 1;
  const auto columns = static_cast<std::size_t>(floorDivide(area.x + area.width - 1, cellSide) + 2 - firstColumn);
  const auto skippedCells = static_cast<std::size_t>(firstColumn - source.column);
  const int skippedPixels = area.x - (firstColumn + 1) * cellSide;
  std::vector<Cell> line(columns);
  std::vector<std::uint32_t> pixels((columns - 2) * cellSide);
  for (int y = 0; y < area.height; ++y) {
    const int row = floorDivide(area.y + y, cellSide);
    const Phase& phase = phases[area.y + y - row * cellSide];
    const auto sourceRow = static_cast<std::size_t>(row + phase.offset - source.row);
    const BlurredCell* first = &source.cells[sourceRow * rowLength + skippedCells];
    interpolateRows(first, first + rowLength, phase, line);
    interpolateLine(line, pixels.data());
    std::copy_n(pixels.begin() + skippedPixels, area.width,
                target.begin() + static_cast<std::ptrdiff_t>(y) * area.width);
  }
}

}  // namespace drawing
