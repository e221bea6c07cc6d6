// Reads the pixels of a PNG file.
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

// The components are between 0 and 1. The brightness is computed from the unpremultiplied color.
struct Pixel {
  double alpha = 0;
  double brightness = 0;
};

class PngImage {
 public:
  // The image has size zero if the file is missing or is not a PNG.
  explicit PngImage(const std::string& path)
      : file_(cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy) {
    if (cairo_surface_status(file_.get()) != CAIRO_STATUS_SUCCESS) return;
    size_ = {cairo_image_surface_get_width(file_.get()), cairo_image_surface_get_height(file_.get())};
    pixels_ = {cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size_.width, size_.height), cairo_surface_destroy};
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(pixels_.get()), cairo_destroy);
    cairo_set_source_surface(context.get(), file_.get(), 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(pixels_.get());
  }

  Size size() const { return size_; }

  Pixel at(int x, int y) const {
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(pixels_.get()));
    const std::span bytes(cairo_image_surface_get_data(pixels_.get()), stride * static_cast<std::size_t>(size_.height));
    const auto components = bytes.subspan(static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(x) * 4, 4);
    const double alpha = components[3];
    if (alpha == 0) return {};
    return {alpha / 255, (components[0] + components[1] + components[2]) / (3 * alpha)};
  }

 private:
  using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

  Size size_;
  Surface file_;
  Surface pixels_{nullptr, cairo_surface_destroy};
};

}  // namespace assets_test
