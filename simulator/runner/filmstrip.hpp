// A filmstrip: several pictures of the screen side by side in one picture. Main thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "simulator/drawing/canvas.hpp"

namespace runner {

// Adds the upper `height` points of the screen as the next frame. Copies the pixels.
void addFrame(const drawing::Canvas& screen, double height);
std::size_t frameCount();

// Draws the frames from left to right and removes them. Null if there are none.
std::shared_ptr<drawing::Canvas> takeFilmstrip();

}  // namespace runner
