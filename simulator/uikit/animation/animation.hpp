// Animated values. A change sets the model value immediately. The shown value follows along the timing curve. Times are
// in seconds on the clock of the main queue. Main thread only.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/core_graphics.hpp"
#include "simulator/drawing/geometry.hpp"

namespace uikit {

// The changes that one call of +animateWithDuration:… makes.
class AnimationGroup;

// Returns the group whose animation block is running. Returns null outside of such a block, for a duration of 0, and
// while animations are disabled.
AnimationGroup* currentAnimationGroup();

// One animation of a value. The shown value is the model value plus the remaining part of the offset of each animation.
// Therefore, a new animation starts from the shown value, and an older animation still ends on time.
template <class Value>
struct AdditiveAnimation {
  Value offset;
  std::shared_ptr<AnimationGroup> group;
};

// Returns the remaining fraction of the offsets of this group's animations: 1 at the start of the group, 0 at its end.
double remainingFraction(const AnimationGroup& group, double now);
bool hasEnded(const AnimationGroup& group, double now);
// Adds a change to the current group and returns the group. Returns null if there is no current group.
std::shared_ptr<AnimationGroup> joinCurrentGroup();
void leaveGroup(const std::shared_ptr<AnimationGroup>& group);
void advanceGroup(AnimationGroup& group, double seconds);
// Returns the time of the shown values: the current time, or the time of a ShownTime.
double animationTime();

// While an object of this class exists, the shown values are those at its time. Only one object can exist at a time.
// During that time, no animation must be added.
class ShownTime {
 public:
  explicit ShownTime(double time);
  ShownTime(const ShownTime&) = delete;
  ShownTime& operator=(const ShownTime&) = delete;
  ~ShownTime();
};

// The arithmetic of animated values. difference() computes left - right. accumulate() computes value + offset *
// fraction.
inline double difference(double left, double right) { return left - right; }
inline double accumulate(double value, double offset, double fraction) { return value + offset * fraction; }
CGPoint difference(CGPoint left, CGPoint right);
CGPoint accumulate(CGPoint value, CGPoint offset, double fraction);
CGRect difference(const CGRect& left, const CGRect& right);
CGRect accumulate(const CGRect& value, const CGRect& offset, double fraction);
drawing::Color difference(const drawing::Color& left, const drawing::Color& right);
drawing::Color accumulate(const drawing::Color& value, const drawing::Color& offset, double fraction);

// A value of a view or layer. If it is set inside an animation block, the change is animated.
template <class Value>
class Animated {
 public:
  explicit Animated(Value initial) : model_(initial) {}

  const Value& model() const { return model_; }

  void set(const Value& value) {
    if (value == model_) return;
    std::shared_ptr<AnimationGroup> group = joinCurrentGroup();
    if (group != nullptr) {
      removeEndedAnimations();
      animations_.push_back({difference(model_, value), std::move(group)});
    }
    model_ = value;
  }

  Value shown() const {
    Value value = model_;
    if (animations_.empty()) return value;
    const double now = animationTime();
    for (const AdditiveAnimation<Value>& animation : animations_)
      value = accumulate(value, animation.offset, remainingFraction(*animation.group, now));
    return value;
  }

  // Returns whether the shown value can still change.
  bool isAnimating() const {
    const double now = animationTime();
    return std::ranges::any_of(
        animations_, [now](const AdditiveAnimation<Value>& animation) { return !hasEnded(*animation.group, now); });
  }

  // Advances the animations of this value, and the other animations of their groups, by this time.
  void advanceAnimations(double seconds) {
    for (const AdditiveAnimation<Value>& animation : animations_) advanceGroup(*animation.group, seconds);
  }

  // Sets the shown value to the model value. The removed animations count as not finished.
  void removeAnimations() {
    std::vector<AdditiveAnimation<Value>> removed;
    removed.swap(animations_);
    for (const AdditiveAnimation<Value>& animation : removed) leaveGroup(animation.group);
  }

 private:
  void removeEndedAnimations() {
    const double now = animationTime();
    std::erase_if(animations_,
                  [now](const AdditiveAnimation<Value>& animation) { return hasEnded(*animation.group, now); });
  }

  Value model_;
  std::vector<AdditiveAnimation<Value>> animations_;
};

}  // namespace uikit
