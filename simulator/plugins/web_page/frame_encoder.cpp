#include "simulator/plugins/web_page/frame_encoder.hpp"

#include <gio/gio.h>

#include <array>
#include <cstdint>

#include "simulator/drawing/cairo_handles.hpp"
#include "simulator/plugins/web_page/object_handle.hpp"

namespace web_page {

namespace {

// If more rectangles have changed, the frame contains one rectangle that encloses them.
constexpr int maxRectangles = 32;
// The fastest level. The next levels would take more time to compress than they would save in transfer.
constexpr int compressionLevel = 1;

using Bytes = std::vector<std::byte>;

void appendInteger(Bytes& bytes, int value) {
  const auto bits = static_cast<std::uint32_t>(value);
  for (const int shift : {0, 8, 16, 24}) bytes.push_back(static_cast<std::byte>(bits >> shift));
}

std::vector<drawing::PixelRectangle> rectanglesOf(const cairo_region_t* region) {
  std::vector<drawing::PixelRectangle> rectangles;
  const int count = cairo_region_num_rectangles(region);
  cairo_rectangle_int_t part = {};
  if (count > maxRectangles) {
    cairo_region_get_extents(region, &part);
    return {{part.x, part.y, part.width, part.height}};
  }
  for (int index = 0; index < count; ++index) {
    cairo_region_get_rectangle(region, index, &part);
    rectangles.push_back({part.x, part.y, part.width, part.height});
  }
  return rectangles;
}

// Converts a premultiplied pixel to red, green, blue and alpha without premultiplication.
std::array<std::byte, 4> straightPixel(std::uint32_t pixel) {
  constexpr std::uint32_t opaque = 255;
  const std::uint32_t alpha = pixel >> 24;
  const auto channel = [&](int shift) {
    const std::uint32_t value = pixel >> shift & opaque;
    return static_cast<std::byte>(alpha == opaque || alpha == 0 ? value : (value * opaque + alpha / 2) / alpha);
  };
  return {channel(16), channel(8), channel(0), static_cast<std::byte>(alpha)};
}

void appendPixels(Bytes& bytes, const drawing::PixelRectangle& area, const DrawPicture& draw) {
  const drawing::SurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, area.width, area.height));
  const drawing::ContextHandle context(cairo_create(surface.get()));
  cairo_translate(context.get(), -area.x, -area.y);
  draw(context.get());
  cairo_surface_flush(surface.get());
  const unsigned char* const data = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  const std::size_t start = bytes.size();
  bytes.resize(start + std::size_t{4} * static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height));
  auto position = bytes.begin() + static_cast<std::ptrdiff_t>(start);
  for (int y = 0; y < area.height; ++y) {
    const auto* const row = reinterpret_cast<const std::uint32_t*>(data + static_cast<std::ptrdiff_t>(y) * stride);
    for (int x = 0; x < area.width; ++x)
      for (const std::byte channel : straightPixel(row[x])) *position++ = channel;
  }
}

void appendCompressed(Bytes& bytes, const Bytes& content) {
  const ObjectHandle<GZlibCompressor> compressor(
      g_zlib_compressor_new(G_ZLIB_COMPRESSOR_FORMAT_ZLIB, compressionLevel));
  constexpr std::size_t minSpace = 64 << 10;
  std::size_t consumed = 0;
  GConverterResult result = G_CONVERTER_CONVERTED;
  while (result == G_CONVERTER_CONVERTED) {
    const std::size_t size = bytes.size();
    bytes.resize(size + minSpace + (content.size() - consumed) / 4);
    gsize read = 0;
    gsize written = 0;
    result = g_converter_convert(G_CONVERTER(compressor.get()), content.data() + consumed, content.size() - consumed,
                                 bytes.data() + size, bytes.size() - size, G_CONVERTER_INPUT_AT_END, &read, &written,
                                 nullptr);
    consumed += read;
    bytes.resize(size + written);
  }
}

}  // namespace

std::vector<std::byte> encodeFrame(int width, int height, const cairo_region_t* changed, const DrawPicture& draw) {
  const std::vector<drawing::PixelRectangle> rectangles = rectanglesOf(changed);
  Bytes frame;
  Bytes pixels;
  appendInteger(frame, width);
  appendInteger(frame, height);
  appendInteger(frame, static_cast<int>(rectangles.size()));
  for (const drawing::PixelRectangle& area : rectangles) {
    for (const int value : {area.x, area.y, area.width, area.height}) appendInteger(frame, value);
    appendPixels(pixels, area, draw);
  }
  appendCompressed(frame, pixels);
  return frame;
}

}  // namespace web_page
