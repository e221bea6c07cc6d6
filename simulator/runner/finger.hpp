// Simulates a finger that taps and drags. Each touch event is a separate run-loop iteration. Points are in screen
// coordinates. Main thread.
#pragma once

#include "platform/core_graphics.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace runner {

enum class DragEnd { Release, Cancel, Hold };

// Delivers one touch event of the finger and runs the work that is due.
void touch(UITouchPhase phase, CGPoint point);

void tapAt(CGPoint point);

// Puts the finger down at `start` and moves it by `distance` in equal steps. If the last drag ended with Hold, ignores
// `start` and continues from the current position of the finger.
void drag(CGPoint start, CGPoint distance, int steps, DragEnd end);

// Returns whether the finger is still on the screen after the last drag.
bool isFingerHeld();

}  // namespace runner
