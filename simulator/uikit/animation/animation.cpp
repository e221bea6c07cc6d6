#include "simulator/uikit/animation/animation.hpp"

#include <cmath>
#include <optional>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/animation/animation_group.hpp"

namespace uikit {

namespace {

// The timing function is a cubic Bézier curve from (0,0) to (1,1). These values are the times of its two control
// points, at which the progress is 0 and 1.
constexpr double firstControl = 0.42;
constexpr double secondControl = 0.58;

double curveTime(double parameter) {
  const double complement = 1 - parameter;
  return 3 * complement * complement * parameter * firstControl +
         3 * complement * parameter * parameter * secondControl + parameter * parameter * parameter;
}

double curveProgress(double parameter) { return parameter * parameter * (3 - 2 * parameter); }

// Computes the progress at a time. Uses bisection, which is exact enough for pixels and gives the same result on all
// machines.
double easeInEaseOut(double time) {
  double low = 0;
  double high = 1;
  for (int step = 0; step < 40; ++step) {
    const double middle = (low + high) / 2;
    (curveTime(middle) < time ? low : high) = middle;
  }
  return curveProgress((low + high) / 2);
}

// The groups of the animation blocks that are currently running, innermost last. Null represents a block that disables
// animations.
std::vector<std::shared_ptr<AnimationGroup>>& runningBlocks() {
  static std::vector<std::shared_ptr<AnimationGroup>> blocks;
  return blocks;
}

// Represents a running animation block. The destructor ends it, even if the block throws an exception.
class RunningBlock {
 public:
  explicit RunningBlock(std::shared_ptr<AnimationGroup> group) { runningBlocks().push_back(std::move(group)); }
  ~RunningBlock() { runningBlocks().pop_back(); }
  RunningBlock(const RunningBlock&) = delete;
  RunningBlock& operator=(const RunningBlock&) = delete;
};

double& latestEnd() {
  static double time = 0;
  return time;
}

std::optional<double>& selectedShownTime() {
  static std::optional<double> time;
  return time;
}

}  // namespace

AnimationGroup::AnimationGroup(const AnimationTiming& timing, objc::Block<void(bool)>* completion)
    : begin_(foundation::now() + std::max(timing.delay, 0.0)),
      duration_(std::max(timing.duration, 0.0)),
      completion_(completion) {}

bool AnimationGroup::isInstant() const { return end() <= foundation::now(); }

double AnimationGroup::progress(double now) const {
  if (now >= end()) return 1;
  if (now <= begin_) return 0;
  return easeInEaseOut((now - begin_) / duration_);
}

void AnimationGroup::start() {
  if (pendingChanges_ == 0) {
    foundation::onMainThread([self = shared_from_this()] { self->complete(); });
    return;
  }
  latestEnd() = std::max(latestEnd(), end());
  foundation::onMainThreadAfter(end() - foundation::now(), [self = shared_from_this()] { self->complete(); });
}

void AnimationGroup::advance(double seconds) {
  begin_ -= seconds;
  foundation::onMainThreadAfter(end() - foundation::now(), [self = shared_from_this()] { self->complete(); });
}

void AnimationGroup::leave() {
  if (completed_ || --pendingChanges_ > 0) return;
  finished_ = false;
  foundation::onMainThread([self = shared_from_this()] { self->complete(); });
}

void AnimationGroup::complete() {
  if (completed_) return;
  completed_ = true;
  const objc::BlockRef<void(bool)> completion = std::move(completion_);
  if (completion.get() != nullptr) (*completion.get())(finished_);
}

void runAnimation(AnimationTiming timing, objc::Block<void()>* animations, objc::Block<void(bool)>* completion) {
  // A nested animation has the duration of the outer animation.
  if (AnimationGroup* outer = currentAnimationGroup(); outer != nullptr) timing.duration = outer->duration();
  const auto group = std::make_shared<AnimationGroup>(timing, completion);
  if (animations != nullptr) {
    const RunningBlock running(group);
    (*animations)();
  }
  group->start();
}

void runWithoutAnimation(objc::Block<void()>* changes) {
  const RunningBlock running(nullptr);
  if (changes != nullptr) (*changes)();
}

AnimationGroup* currentAnimationGroup() {
  if (runningBlocks().empty() || runningBlocks().back() == nullptr) return nullptr;
  AnimationGroup* group = runningBlocks().back().get();
  return group->isInstant() ? nullptr : group;
}

std::shared_ptr<AnimationGroup> joinCurrentGroup() {
  AnimationGroup* group = currentAnimationGroup();
  if (group == nullptr) return nullptr;
  group->join();
  return group->shared_from_this();
}

void leaveGroup(const std::shared_ptr<AnimationGroup>& group) { group->leave(); }

void advanceGroup(AnimationGroup& group, double seconds) { group.advance(seconds); }

bool isAnimating() { return latestEnd() > foundation::now(); }

double endOfAnimations() { return latestEnd(); }

double animationTime() { return selectedShownTime().value_or(foundation::now()); }

ShownTime::ShownTime(double time) { selectedShownTime() = time; }
ShownTime::~ShownTime() { selectedShownTime().reset(); }

double remainingFraction(const AnimationGroup& group, double now) { return 1 - group.progress(now); }

bool hasEnded(const AnimationGroup& group, double now) { return now >= group.end(); }

CGPoint difference(CGPoint left, CGPoint right) { return {left.x - right.x, left.y - right.y}; }

CGPoint accumulate(CGPoint value, CGPoint offset, double fraction) {
  return {value.x + offset.x * fraction, value.y + offset.y * fraction};
}

CGRect difference(const CGRect& left, const CGRect& right) {
  return {difference(left.origin, right.origin),
          {left.size.width - right.size.width, left.size.height - right.size.height}};
}

CGRect accumulate(const CGRect& value, const CGRect& offset, double fraction) {
  return {accumulate(value.origin, offset.origin, fraction),
          {value.size.width + offset.size.width * fraction, value.size.height + offset.size.height * fraction}};
}

// Colors are interpolated with premultiplied alpha. Therefore, the hue of a color that fades in from transparent does
// not change.
drawing::Color difference(const drawing::Color& left, const drawing::Color& right) {
  return {left.red * left.alpha - right.red * right.alpha, left.green * left.alpha - right.green * right.alpha,
          left.blue * left.alpha - right.blue * right.alpha, left.alpha - right.alpha};
}

drawing::Color accumulate(const drawing::Color& value, const drawing::Color& offset, double fraction) {
  const double alpha = std::clamp(value.alpha + offset.alpha * fraction, 0.0, 1.0);
  if (alpha <= 0) return {value.red, value.green, value.blue, 0};
  const auto mixed = [&](double component, double change) {
    return std::clamp((component * value.alpha + change * fraction) / alpha, 0.0, 1.0);
  };
  return {mixed(value.red, offset.red), mixed(value.green, offset.green), mixed(value.blue, offset.blue), alpha};
}

}  // namespace uikit
