// Vertical scrolling with a finger. An offset is the distance in points by which the content has moved up. Main thread.
#pragma once

#include <functional>
#include <memory>

#include "platform/core_graphics.hpp"

namespace springboard {

// Returns the offset that is shown while the finger requests this offset. Beyond the limits 0 and `max`, the content
// follows the finger with increasing resistance and moves by less than `viewport`, the height of the visible part.
CGFloat resistedOffset(CGFloat requested, CGFloat max, CGFloat viewport);

// Returns how far content with this initial speed, in points per second, moves in this time while friction slows it.
CGFloat decelerationDistance(CGFloat velocity, double seconds);

// The content that a Scroller moves.
struct ScrolledContent {
  // Returns the height of the visible part.
  std::function<CGFloat()> viewport;
  // Returns the largest offset at which the content fills the visible part. First creates on-demand content for offsets
  // up to `wanted`. A result larger than `wanted` can be smaller than the final maximum.
  std::function<CGFloat(CGFloat wanted)> maxOffset;
  // Moves the content. Can be called in an animation block.
  std::function<void(CGFloat offset)> show;
};

// Scrolls content. After a drag, the content decelerates and, if it is beyond its limits, returns to them.
class Scroller {
 public:
  explicit Scroller(ScrolledContent content);

  CGFloat offset() const;
  // Stops the content. Call this when a drag begins.
  void beginDrag();
  // Moves the content with the finger. `translation` is the distance since the drag began; it is positive downward.
  void drag(CGFloat translation);
  // Ends the drag. A positive speed is downward, in points per second.
  void endDrag(CGFloat velocity);
  // Moves the content back to its limits, with an animation. Call this after the content has become shorter.
  void clamp();

 private:
  struct Motion;
  std::shared_ptr<Motion> motion_;
};

}  // namespace springboard
