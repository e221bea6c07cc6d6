#include <algorithm>
#include <cstring>

#include "simulator/drawing/codecs.hpp"

namespace drawing {
namespace {

constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
// The header chunk follows the signature: its length, its type, then width and height, big-endian.
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

SurfaceHandle decodePng(std::span<const std::byte> data) {
  if (!hasAcceptableHeader(data)) return nullptr;
  SurfaceHandle surface(cairo_image_surface_create_from_png_stream(&readBytes, &data));
  return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? std::move(surface) : nullptr;
}

std::vector<std::byte> encodePng(cairo_surface_t* surface) {
  std::vector<std::byte> written;
  if (cairo_surface_write_to_png_stream(surface, &appendBytes, &written) != CAIRO_STATUS_SUCCESS) written.clear();
  return written;
}

}  // namespace drawing
