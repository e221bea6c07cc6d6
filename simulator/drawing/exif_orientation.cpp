#include "simulator/drawing/exif_orientation.hpp"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>

namespace drawing {
namespace {

constexpr std::byte segmentStart[] = {std::byte{'E'}, std::byte{'x'}, std::byte{'i'},
                                      std::byte{'f'}, std::byte{0},   std::byte{0}};
constexpr std::size_t headerSize = 8;
constexpr std::size_t entrySize = 12;
constexpr std::uint32_t orientationTag = 0x0112;
constexpr std::uint32_t shortType = 3;

// Reads numbers in the byte order that the header specifies.
class Metadata {
 public:
  explicit Metadata(std::span<const std::byte> bytes)
      : bytes_(bytes), isBigEndian_(!bytes.empty() && bytes[0] == std::byte{'M'}) {}

  std::optional<std::uint32_t> number(std::size_t offset, std::size_t size) const {
    if (offset > bytes_.size() || size > bytes_.size() - offset) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < size; ++index) {
      const std::size_t place = isBigEndian_ ? index : size - 1 - index;
      value = value << 8 | std::to_integer<std::uint32_t>(bytes_[offset + place]);
    }
    return value;
  }

 private:
  std::span<const std::byte> bytes_;
  bool isBigEndian_;
};

// Maps the position of a pixel in the upright picture to its position in the stored picture.
struct Transformation {
  bool swapsAxes;
  bool mirrorsAcross;
  bool mirrorsDown;
};

// The transformation of each orientation. The index is the value of the orientation minus 1.
constexpr Transformation transformations[] = {
    {false, false, false}, {false, true, false}, {false, true, true}, {false, false, true},
    {true, false, false},  {true, false, true},  {true, true, true},  {true, true, false},
};

}  // namespace

Orientation orientationIn(std::span<const std::byte> segment) {
  if (segment.size() < std::size(segmentStart) ||
      !std::equal(std::begin(segmentStart), std::end(segmentStart), segment.begin()))
    return Orientation::Upright;
  const Metadata metadata(segment.subspan(std::size(segmentStart)));
  const std::size_t directory = metadata.number(headerSize / 2, 4).value_or(0);
  const std::size_t count = metadata.number(directory, 2).value_or(0);
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t entry = directory + 2 + index * entrySize;
    if (metadata.number(entry, 2) != orientationTag) continue;
    const std::uint32_t value = metadata.number(entry + 8, 2).value_or(1);
    const bool isKnown =
        metadata.number(entry + 2, 2) == shortType && value >= 1 && value <= std::size(transformations);
    return isKnown ? static_cast<Orientation>(value) : Orientation::Upright;
  }
  return Orientation::Upright;
}

SurfaceHandle uprightPicture(SurfaceHandle picture, Orientation orientation) {
  if (orientation == Orientation::Upright) return picture;
  const Transformation& transformation = transformations[static_cast<std::size_t>(orientation) - 1];
  const int storedWidth = cairo_image_surface_get_width(picture.get());
  const int storedHeight = cairo_image_surface_get_height(picture.get());
  const int width = transformation.swapsAxes ? storedHeight : storedWidth;
  const int height = transformation.swapsAxes ? storedWidth : storedHeight;
  SurfaceHandle upright(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  if (cairo_surface_status(upright.get()) != CAIRO_STATUS_SUCCESS) return nullptr;

  cairo_surface_flush(picture.get());
  const unsigned char* stored = cairo_image_surface_get_data(picture.get());
  unsigned char* target = cairo_image_surface_get_data(upright.get());
  const std::ptrdiff_t storedStride = cairo_image_surface_get_stride(picture.get());
  const std::ptrdiff_t stride = cairo_image_surface_get_stride(upright.get());
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<std::uint32_t*>(target + y * stride);
    for (int x = 0; x < width; ++x) {
      const int across = transformation.swapsAxes ? y : x;
      const int down = transformation.swapsAxes ? x : y;
      const int storedX = transformation.mirrorsAcross ? storedWidth - 1 - across : across;
      const int storedY = transformation.mirrorsDown ? storedHeight - 1 - down : down;
      row[x] = reinterpret_cast<const std::uint32_t*>(stored + storedY * storedStride)[storedX];
    }
  }
  cairo_surface_mark_dirty(upright.get());
  return upright;
}

}  // namespace drawing
