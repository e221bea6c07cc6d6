// A filmstrip: one picture that shows several pictures of the screen side by side. Main thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "simulator/drawing/canvas.hpp"

namespace runner {

// Adds a copy of the upper `height` points of the screen as the next frame.
void addFrame(const drawing::Canvas& screen, double height);
std::size_t frameCount();

// Draws the frames from left to right and then removes them. Returns null if there are no frames.
std::shared_ptr<drawing::Canvas> takeFilmstrip();

}  // namespace runner
