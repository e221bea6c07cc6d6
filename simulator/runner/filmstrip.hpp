// A filmstrip: one picture that shows several pictures of the screen side by side. Main thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "simulator/drawing/canvas.hpp"

namespace runner {

enum class FrameResult { Added, StripTooLarge };

// Adds a copy of the upper `height` points of the screen as the next frame, unless the filmstrip would become too large
// for one picture.
[[nodiscard]] FrameResult addFrame(const drawing::Canvas& screen, double height);
std::size_t frameCount();

// Draws the frames from left to right. Returns null if there are no frames.
std::shared_ptr<drawing::Canvas> drawFilmstrip();
void removeFrames();

}  // namespace runner
