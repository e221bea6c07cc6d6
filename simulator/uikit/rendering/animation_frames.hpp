// Requests the frames in which running animations change the visible contents of the screen. The process does not wake
// for other frames. Without a display observation, no frame is requested. Main thread only.
#pragma once

namespace uikit {

// Finds the next frame in which an animation changes a visible view, and calls noteDisplayChange at this frame. Call
// this at the end of each run-loop iteration, after the layout. It does nothing unless the display has changed since
// the last call.
void scheduleAnimationFrames();
// Makes the next call of scheduleAnimationFrames search again. Call this when a display observation was added.
void invalidateAnimationFrames();

}  // namespace uikit
