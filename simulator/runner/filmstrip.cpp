#include "simulator/runner/filmstrip.hpp"

#include <algorithm>
#include <cmath>
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

// The limits of the whole filmstrip. The width of a canvas is sufficient for 40 frames of the widest device.
constexpr double maxWidth = drawing::Canvas::maxSide;
constexpr double maxPixels = 100'000'000;

drawing::Size sizeOf(const std::vector<Frame>& strip) {
  drawing::Size size;
  for (const Frame& frame : strip) {
    size.width += frame.picture->pixelWidth() + (size.width > 0 ? gap : 0);
    size.height = std::max(size.height, frame.height);
  }
  return size;
}

}  // namespace

FrameResult addFrame(const drawing::Canvas& screen, double height) {
  const double screenHeight = screen.pixelHeight();
  const double pixels = std::clamp(height * screen.pixelsPerPoint(), 1.0, screenHeight);
  const drawing::Size before = sizeOf(frames());
  const double width = before.width + (before.width > 0 ? gap : 0) + screen.pixelWidth();
  const bool fits = width <= maxWidth && width * std::max(before.height, pixels) <= maxPixels;
  // The first frame is always accepted, because a single screen is never too large.
  if (!fits && !frames().empty()) return FrameResult::StripTooLarge;
  const auto part = screen.copyOf({0, 0, screen.pixelWidth(), static_cast<int>(std::ceil(pixels))});
  frames().push_back({part->snapshot(), pixels});
  return FrameResult::Added;
}

std::size_t frameCount() { return frames().size(); }

void removeFrames() { frames().clear(); }

std::shared_ptr<drawing::Canvas> drawFilmstrip() {
  const std::vector<Frame>& strip = frames();
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
