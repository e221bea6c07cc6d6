#include "tests/uikit/view_content.hpp"

#include <algorithm>

#include "simulator/uikit/rendering/renderer.hpp"

namespace test {

NSString* stringWithUnpairedSurrogate() { return objc::send<NSString*, "substringWithRange:">("a👍"_ns, NSRange{0, 2}); }

Json describe(UIView* view) { return uikit::describeTree(view); }

std::shared_ptr<const drawing::Image> solidImage(int width, int height, std::uint32_t pixel, double scale) {
  drawing::Canvas canvas({static_cast<double>(width), static_cast<double>(height)}, 1);
  const auto channel = [pixel](int shift) { return ((pixel >> shift) & 0xff) / 255.0; };
  canvas.clear({channel(16), channel(8), channel(0), channel(24)});
  return drawing::Image::fromSurface(drawing::SurfaceHandle(cairo_surface_reference(canvas.surface())), scale);
}

CGRect inkBounds(std::uint32_t background) {
  const auto screen = uikit::renderScreen(1);
  int left = screen->pixelWidth();
  int top = screen->pixelHeight();
  int right = 0;
  int bottom = 0;
  for (int y = 0; y < screen->pixelHeight(); ++y) {
    for (int x = 0; x < screen->pixelWidth(); ++x) {
      if (screen->pixel(x, y) == background) continue;
      left = std::min(left, x);
      top = std::min(top, y);
      right = std::max(right, x + 1);
      bottom = std::max(bottom, y + 1);
    }
  }
  if (right == 0) return {};
  return {{static_cast<double>(left), static_cast<double>(top)},
          {static_cast<double>(right - left), static_cast<double>(bottom - top)}};
}

}  // namespace test
