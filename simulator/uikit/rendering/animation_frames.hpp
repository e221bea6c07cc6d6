// Requests the frames in which running animations change the visible contents of the screen. The process does not wake
// for other frames. No frame is requested while there is no display observation. Main thread only.
#pragma once

#include "platform/ui_view.hpp"

namespace uikit {

// Finds the next frame in which an animation changes a visible view, and calls noteDisplayChange at this frame. Call
// this at the end of each run-loop iteration, after the layout. It does nothing unless the display has changed since
// the last call.
void scheduleAnimationFrames();
// Makes the next call of scheduleAnimationFrames search again. Call this when a display observation was added.
void invalidateAnimationFrames();

// Lays out the windows. If a part of the view is visible in any frame of its running movement, then advances the
// movement to the first such frame. The completion of the movement runs earlier by the skipped time.
void skipInvisibleFrames(UIView* view);

}  // namespace uikit
