// The finger on the screen: taps and drags, each step a turn of the run loop of its own.
#pragma once

#include "platform/core_graphics.hpp"

namespace runner {

enum class DragEnd { Release, Cancel, Hold };

void tapAt(CGPoint point);

// Goes down at `start`, or goes on from where an earlier drag held it, and moves by `distance` in equal steps.
void drag(CGPoint start, CGPoint distance, int steps, DragEnd end);

bool isFingerHeld();

}  // namespace runner
