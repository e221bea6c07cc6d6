#include "simulator/springboard/platter/scrolling.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/ui_view.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace springboard {

namespace {

constexpr double resistance = 0.55;
// The reciprocal of the time, in seconds, in which the speed decreases by the factor e.
constexpr double friction = 2;
constexpr CGFloat minVelocity = 20;
constexpr double returnSeconds = 0.3;

CGFloat resisted(CGFloat distance, CGFloat viewport) {
  return (1 - 1 / (distance * resistance / viewport + 1)) * viewport;
}

}  // namespace

CGFloat resistedOffset(CGFloat requested, CGFloat max, CGFloat viewport) {
  if (requested < 0) return -resisted(-requested, viewport);
  if (requested > max) return max + resisted(requested - max, viewport);
  return requested;
}

CGFloat decelerationDistance(CGFloat velocity, double seconds) {
  return velocity / friction * (1 - std::exp(-friction * seconds));
}

struct Scroller::Motion {
  ScrolledContent content;
  CGFloat offset = 0;
  CGFloat offsetOfDrag = 0;       // the offset at which the drag began
  std::size_t decelerations = 0;  // increases whenever a deceleration starts or stops

  void moveTo(CGFloat wanted) {
    offset = wanted;
    content.show(offset);
  }
  CGFloat clamped(CGFloat wanted) const { return std::clamp<CGFloat>(wanted, 0, content.maxOffset(wanted)); }

  // Returns whether the content is still moving.
  bool decelerate(CGFloat start, CGFloat velocity, double seconds) {
    const CGFloat wanted = start + decelerationDistance(velocity, seconds);
    moveTo(clamped(wanted));
    return offset == wanted && std::abs(velocity) * std::exp(-friction * seconds) > minVelocity;
  }
};

Scroller::Scroller(ScrolledContent content) : motion_(std::make_shared<Motion>()) {
  motion_->content = std::move(content);
}

CGFloat Scroller::offset() const { return motion_->offset; }

void Scroller::beginDrag() {
  ++motion_->decelerations;
  motion_->offsetOfDrag = motion_->offset;
}

void Scroller::drag(CGFloat translation) {
  const CGFloat wanted = motion_->offsetOfDrag - translation;
  motion_->moveTo(resistedOffset(wanted, motion_->content.maxOffset(wanted), motion_->content.viewport()));
}

void Scroller::endDrag(CGFloat velocity) {
  if (motion_->clamped(motion_->offset) != motion_->offset) return clamp();
  if (std::abs(velocity) <= minVelocity) return;
  foundation::addFrameObserver([observed = std::weak_ptr(motion_), number = ++motion_->decelerations,
                                start = motion_->offset, velocity, begin = foundation::now()](double now) {
    const std::shared_ptr<Motion> motion = observed.lock();
    const bool continues =
        motion != nullptr && motion->decelerations == number && motion->decelerate(start, -velocity, now - begin);
    return continues ? foundation::FrameDemand::More : foundation::FrameDemand::Done;
  });
}

void Scroller::clamp() {
  const CGFloat wanted = motion_->clamped(motion_->offset);
  if (wanted == motion_->offset) return;
  const std::shared_ptr<Motion> motion = motion_;
  UIView::animate(returnSeconds, objc::block([motion, wanted] { motion->moveTo(wanted); }));
}

}  // namespace springboard
