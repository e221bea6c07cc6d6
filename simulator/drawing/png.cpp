#include <algorithm>
#include <cstring>
#include <iterator>

#include "simulator/drawing/codecs.hpp"

namespace drawing {
namespace {

constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
// The header chunk follows the signature. The chunk begins with its length, its type, and the width and height of the
// image. All numbers are big-endian.
constexpr std::size_t headerType = sizeof signature + 4;
constexpr std::size_t headerWidth = headerType + 4;
constexpr std::size_t headerHeight = headerWidth + 4;
constexpr std::size_t headerEnd = headerHeight + 4;

std::int64_t bigEndian(std::span<const std::byte> data, std::size_t offset) {
  std::int64_t value = 0;
  for (std::size_t index = 0; index < 4; ++index) value = value << 8 | std::to_integer<int>(data[offset + index]);
  return value;
}

bool hasAcceptableHeader(std::span<const std::byte> data) {
  return data.size() >= headerEnd && std::memcmp(data.data(), signature, sizeof signature) == 0 &&
         std::memcmp(data.data() + headerType, "IHDR", 4) == 0 &&
         isAcceptableSize(bigEndian(data, headerWidth), bigEndian(data, headerHeight));
}

// Returns whether the chunk is necessary to decode the pixels. Other chunks are ignored, because a compressed chunk can
// require a thousand times its size in memory.
bool isPixelChunk(std::span<const std::byte> type) {
  constexpr const char* types[] = {"IHDR", "PLTE", "tRNS", "IDAT", "IEND"};
  return std::any_of(std::begin(types), std::end(types),
                     [type](const char* each) { return std::memcmp(type.data(), each, 4) == 0; });
}

// Returns the file's signature and pixel chunks.
std::vector<std::byte> withoutOtherChunks(std::span<const std::byte> data) {
  constexpr std::size_t lengthAndTypeSize = 8;
  constexpr std::size_t checksumSize = 4;
  std::vector<std::byte> result(data.begin(), data.begin() + sizeof signature);
  result.reserve(data.size());
  data = data.subspan(sizeof signature);
  while (data.size() >= lengthAndTypeSize) {
    const std::size_t declaredSize = lengthAndTypeSize + static_cast<std::size_t>(bigEndian(data, 0)) + checksumSize;
    const std::span<const std::byte> chunk = data.first(std::min(declaredSize, data.size()));
    if (isPixelChunk(chunk.subspan(4))) result.insert(result.end(), chunk.begin(), chunk.end());
    data = data.subspan(chunk.size());
  }
  return result;
}

cairo_status_t readBytes(void* rest, unsigned char* target, unsigned length) {
  auto& data = *static_cast<std::span<const std::byte>*>(rest);
  if (data.size() < length) return CAIRO_STATUS_READ_ERROR;
  std::memcpy(target, data.data(), length);
  data = data.subspan(length);
  return CAIRO_STATUS_SUCCESS;
}

cairo_status_t appendBytes(void* target, const unsigned char* data, unsigned length) {
  const auto* bytes = reinterpret_cast<const std::byte*>(data);
  auto& written = *static_cast<std::vector<std::byte>*>(target);
  written.insert(written.end(), bytes, bytes + length);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

std::optional<PixelSize> pngSize(std::span<const std::byte> header) {
  static_assert(pngHeaderSize == headerEnd);
  if (!hasAcceptableHeader(header)) return std::nullopt;
  return PixelSize{static_cast<int>(bigEndian(header, headerWidth)), static_cast<int>(bigEndian(header, headerHeight))};
}

SurfaceHandle decodePng(std::span<const std::byte> data) {
  if (!hasAcceptableHeader(data)) return nullptr;
  const std::vector<std::byte> chunks = withoutOtherChunks(data);
  std::span<const std::byte> rest = chunks;
  SurfaceHandle surface(cairo_image_surface_create_from_png_stream(&readBytes, &rest));
  return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? std::move(surface) : nullptr;
}

std::vector<std::byte> encodePng(cairo_surface_t* surface) {
  std::vector<std::byte> written;
  if (cairo_surface_write_to_png_stream(surface, &appendBytes, &written) != CAIRO_STATUS_SUCCESS) written.clear();
  return written;
}

}  // namespace drawing
