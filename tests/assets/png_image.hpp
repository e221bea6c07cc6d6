// A PNG file read for its pixels.
#pragma once

#include <cairo.h>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace assets_test {

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

// 0 to 1; the brightness is that of the color before it is made transparent.
struct Pixel {
  double alpha = 0;
  double brightness = 0;
};

class Picture {
 public:
  // A picture of size zero where there is no readable file.
  explicit Picture(const std::string& path)
      : file(cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy) {
    if (cairo_surface_status(file.get()) != CAIRO_STATUS_SUCCESS) return;
    extent = {cairo_image_surface_get_width(file.get()), cairo_image_surface_get_height(file.get())};
    pixels = {cairo_image_surface_create(CAIRO_FORMAT_ARGB32, extent.width, extent.height), cairo_surface_destroy};
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(pixels.get()), cairo_destroy);
    cairo_set_source_surface(context.get(), file.get(), 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(pixels.get());
  }

  Size size() const { return extent; }

  Pixel at(int x, int y) const {
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(pixels.get()));
    const std::span bytes(cairo_image_surface_get_data(pixels.get()), stride * static_cast<std::size_t>(extent.height));
    const auto components = bytes.subspan(static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(x) * 4, 4);
    const double alpha = components[3];
    if (alpha == 0) return {};
    return {alpha / 255, (components[0] + components[1] + components[2]) / (3 * alpha)};
  }

 private:
  using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

  Size extent;
  Surface file;
  Surface pixels{nullptr, cairo_surface_destroy};
};

}  // namespace assets_test
