// One run of +animateWithDuration:…: its timing, how much of it is under way, and its completion.
#pragma once

#include <memory>

#include "objc/block.hpp"
#include "simulator/uikit/animation/animation.hpp"

namespace uikit {

// Seconds.
struct AnimationTiming {
  double duration = 0;
  double delay = 0;
};

class AnimationGroup : public std::enable_shared_from_this<AnimationGroup> {
 public:
  AnimationGroup(const AnimationTiming& timing, objc::Block<void(bool)>* completion);

  double duration() const { return duration_; }
  double end() const { return begin_ + duration_; }
  bool isInstant() const;
  // From 0 to 1 along the default curve.
  double progress(double now) const;

  void join() { ++members_; }
  // A change is taken back before its end. The last of them to go decides whether the animation finishes.
  void leave();
  // After the block: the completion comes at the end, or in the next turn when nothing changed.
  void start();

 private:
  void complete();

  double begin_;
  double duration_;
  objc::BlockRef<void(bool)> completion_;
  int members_ = 0;
  bool finished_ = true;
  bool completed_ = false;
};

// Runs the block; what it changes animates. Either block may be null.
void runAnimation(AnimationTiming timing, objc::Block<void()>* animations, objc::Block<void(bool)>* completion);
void runWithoutAnimation(objc::Block<void()>* changes);
// Whether anything on the screen may be on its way.
bool isAnimating();

}  // namespace uikit
