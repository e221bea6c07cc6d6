// Values that animate: the model changes at once, what is shown follows.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/core_graphics.hpp"
#include "simulator/drawing/geometry.hpp"

namespace uikit {

// One run of +animateWithDuration:…: everything that changed in its block.
class AnimationGroup;

// The group whose block is running; null outside, in one of no duration, and where animations are off.
AnimationGroup* currentAnimationGroup();

// One change on its way. The shown value is the model plus what is left of each flight's offset, so that a newer flight
// starts from what is shown and an older one still ends in its time.
template <class Value>
struct Flight {
  Value offset;
  std::shared_ptr<AnimationGroup> group;
};

// What remains at this time of an offset that began as 1.
double remainingShare(const AnimationGroup& group, double now);
bool hasEnded(const AnimationGroup& group, double now);
std::shared_ptr<AnimationGroup> joinCurrentGroup();
void leaveGroup(const std::shared_ptr<AnimationGroup>& group);
double animationTime();

inline double difference(double left, double right) { return left - right; }
inline double accumulate(double value, double offset, double share) { return value + offset * share; }
CGPoint difference(CGPoint left, CGPoint right);
CGPoint accumulate(CGPoint value, CGPoint offset, double share);
CGRect difference(const CGRect& left, const CGRect& right);
CGRect accumulate(const CGRect& value, const CGRect& offset, double share);
drawing::Color difference(const drawing::Color& left, const drawing::Color& right);
drawing::Color accumulate(const drawing::Color& value, const drawing::Color& offset, double share);

// A value of a view or layer that animates when it is set inside an animation's block.
template <class Value>
class Animated {
 public:
  explicit Animated(Value initial) : model_(initial) {}

  const Value& model() const { return model_; }

  void set(const Value& value) {
    if (value == model_) return;
    std::shared_ptr<AnimationGroup> group = joinCurrentGroup();
    if (group != nullptr) {
      dropEndedFlights();
      flights_.push_back({difference(model_, value), std::move(group)});
    }
    model_ = value;
  }

  Value shown() const {
    Value value = model_;
    if (flights_.empty()) return value;
    const double now = animationTime();
    for (const Flight<Value>& flight : flights_)
      value = accumulate(value, flight.offset, remainingShare(*flight.group, now));
    return value;
  }

  // The shown value jumps to the model; the animations have not finished.
  void removeAnimations() {
    std::vector<Flight<Value>> removed;
    removed.swap(flights_);
    for (const Flight<Value>& flight : removed) leaveGroup(flight.group);
  }

 private:
  void dropEndedFlights() {
    const double now = animationTime();
    std::erase_if(flights_, [now](const Flight<Value>& flight) { return hasEnded(*flight.group, now); });
  }

  Value model_;
  std::vector<Flight<Value>> flights_;
};

}  // namespace uikit
