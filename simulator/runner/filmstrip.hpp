// Pictures of the screen side by side in one picture.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "simulator/drawing/canvas.hpp"

namespace runner {

// Keeps the upper `height` points of a picture of the screen as the next frame.
void addFrame(const drawing::Canvas& screen, double height);
std::size_t frameCount();

// The frames from left to right, which are let go. Null where there are none.
std::shared_ptr<drawing::Canvas> takeFilmstrip();

}  // namespace runner
