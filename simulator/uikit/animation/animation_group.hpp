// The changes that one call of +animateWithDuration:… makes, with their timing and their completion block. Main thread
// only.
#pragma once

#include <memory>

#include "objc/block.hpp"
#include "simulator/uikit/animation/animation.hpp"

namespace uikit {

// The timing of an animation. Times are in seconds.
struct AnimationTiming {
  double duration = 0;
  double delay = 0;
};

class AnimationGroup : public std::enable_shared_from_this<AnimationGroup> {
 public:
  AnimationGroup(const AnimationTiming& timing, objc::Block<void(bool)>* completion);

  double duration() const { return duration_; }
  double end() const { return begin_ + duration_; }
  // Returns whether the group ends immediately. Its changes are then not animated.
  bool isInstant() const;
  // Returns the progress at this time along the default timing curve, from 0 to 1.
  double progress(double now) const;

  // Adds a change to the group.
  void join() { ++pendingChanges_; }
  // Removes a change whose animation was canceled. If no change remains, the completion block runs and receives false.
  void leave();
  // Call this after the animation block has run. Schedules the completion block for the end of the animation, or for
  // the next run-loop iteration if nothing changed.
  void start();
  // Advances the animations by this time. The completion block runs earlier by this time.
  void advance(double seconds);

 private:
  void complete();

  double begin_;
  double duration_;
  objc::BlockRef<void(bool)> completion_;
  int pendingChanges_ = 0;
  bool finished_ = true;
  bool completed_ = false;
};

// Runs the block and animates its changes. Either block can be null.
void runAnimation(AnimationTiming timing, objc::Block<void()>* animations, objc::Block<void(bool)>* completion);
void runWithoutAnimation(objc::Block<void()>* changes);
// Returns whether any animation can be running.
bool isAnimating();
// Returns the time at which the last animation ends, or a past time if no animation is running.
double endOfAnimations();

}  // namespace uikit
