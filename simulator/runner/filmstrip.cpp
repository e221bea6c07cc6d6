#include "simulator/runner/filmstrip.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "simulator/drawing/image.hpp"

namespace runner {

namespace {

constexpr double gap = 10;  // in pixels
constexpr drawing::CornerShape corners = {12, drawing::CornerCurve::Continuous};

struct Frame {
  std::shared_ptr<const drawing::Image> picture;
  double height = 0;  // in pixels
};

std::vector<Frame>& frames() {
  static std::vector<Frame>& stored = *new std::vector<Frame>;
  return stored;
}

drawing::Size sizeOf(const std::vector<Frame>& strip) {
  drawing::Size size = {gap * static_cast<double>(strip.size() - 1), 0};
  for (const Frame& frame : strip) {
    size.width += frame.picture->pixelWidth();
    size.height = std::max(size.height, frame.height);
  }
  return size;
}

}  // namespace

void addFrame(const drawing::Canvas& screen, double height) {
  const double pixels = std::min(height * screen.pixelsPerPoint(), static_cast<double>(screen.pixelHeight()));
  frames().push_back({screen.snapshot(), std::max(pixels, 1.0)});
}

std::size_t frameCount() { return frames().size(); }

std::shared_ptr<drawing::Canvas> takeFilmstrip() {
  const std::vector<Frame> strip = std::exchange(frames(), {});
  if (strip.empty()) return nullptr;
  auto canvas = std::make_shared<drawing::Canvas>(sizeOf(strip), 1);
  double left = 0;
  for (const Frame& frame : strip) {
    const double width = frame.picture->pixelWidth();
    canvas->save();
    canvas->clipRoundedRectangle({left, 0, width, frame.height}, corners);
    canvas->drawImage(frame.picture, {left, 0, width, static_cast<double>(frame.picture->pixelHeight())},
                      drawing::ContentMode::ScaleToFill);
    canvas->restore();
    left += width + gap;
  }
  return canvas;
}

}  // namespace runner
