#include "simulator/uikit/controls/scroll_view.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

namespace {

// The velocity is multiplied by this factor in each millisecond, as on the platform.
constexpr double decelerationRate = 0.998;
constexpr double millisecondsInSecond = 1000;
// In points per second. Scrolling stops below this velocity.
constexpr double minVelocity = 12;
// In seconds. If the finger rests for longer before it leaves the screen, the view does not continue to scroll.
constexpr double maxRest = 0.1;

}  // namespace

}  // namespace uikit

struct ScrollViewState {
  CGFloat contentHeight = 0;
  CGFloat offsetAtTouch = 0;
  double sampleTime = 0;  // the time of the last movement of the finger
  double velocity = 0;    // in points per second; positive if the content moves up
  bool isDecelerating = false;
};
template <>
struct objc::StateOf<UIScrollView> {
  using Type = ScrollViewState;
};

namespace uikit {

namespace {

CGFloat maxOffset(const UIScrollView* self) {
  return std::max<CGFloat>(objc::state(self).contentHeight - self->bounds().size.height, 0);
}

// Changes only the origin of the bounds. In contrast to -setBounds:, this does not solve the constraints again.
void scrollTo(UIScrollView* self, CGFloat offset) {
  LayerRecord& layer = record(self).layer;
  const CGRect bounds = layer.bounds.model();
  const CGFloat clamped = std::clamp<CGFloat>(offset, 0, maxOffset(self));
  if (clamped == bounds.origin.y) return;
  layer.bounds.set({{0, clamped}, bounds.size});
  setNeedsLayout(self);
  noteDisplayChange();
}

UIScrollView* initWithFrame(UIScrollView* self, CGRect frame) {
  self = objc::sendSuper<"UIScrollView", UIScrollView*, "initWithFrame:">(self, frame);
  if (self == nullptr) return nullptr;
  self->setClipsToBounds(true);
  self->addGestureRecognizer(UIPanGestureRecognizer::withTarget(self, objc::selector<"_handlePan:">()));
  return self;
}

CGFloat contentHeight(UIScrollView* self) { return objc::state(self).contentHeight; }
void setContentHeight(UIScrollView* self, CGFloat height) {
  objc::state(self).contentHeight = height;
  scrollTo(self, self->contentOffset());
}

void stop(UIScrollView* self) { objc::state(self).isDecelerating = false; }

void setContentOffset(UIScrollView* self, CGFloat offset) {
  stop(self);
  scrollTo(self, offset);
}

void decelerate(UIScrollView* self, double seconds) {
  ScrollViewState& state = objc::state(self);
  const CGFloat before = self->contentOffset();
  scrollTo(self, before + state.velocity * seconds);
  state.velocity *= std::pow(decelerationRate, seconds * millisecondsInSecond);
  if (std::abs(state.velocity) < minVelocity || self->contentOffset() == before) stop(self);
}

void startDeceleration(UIScrollView* self) {
  objc::state(self).isDecelerating = true;
  foundation::addFrameObserver([weak = objc::Weak<UIScrollView>(self), last = foundation::now()](double now) mutable {
    const objc::Ref<UIScrollView> view = weak.lock();
    if (view == nullptr || !objc::state(view.get()).isDecelerating) return foundation::FrameDemand::Done;
    decelerate(view, now - last);
    last = now;
    return objc::state(view.get()).isDecelerating ? foundation::FrameDemand::More : foundation::FrameDemand::Done;
  });
}

void follow(UIScrollView* self, CGFloat translation) {
  ScrollViewState& state = objc::state(self);
  const CGFloat before = self->contentOffset();
  scrollTo(self, state.offsetAtTouch - translation);
  const double now = foundation::now();
  if (now > state.sampleTime) state.velocity = (self->contentOffset() - before) / (now - state.sampleTime);
  state.sampleTime = now;
}

void handlePan(UIScrollView* self, UIPanGestureRecognizer* recognizer) {
  ScrollViewState& state = objc::state(self);
  const CGFloat translation = recognizer->translationInView(self).y;
  switch (recognizer->state()) {
    case UIGestureRecognizerState::Began:
      stop(self);
      state.offsetAtTouch = self->contentOffset();
      state.velocity = 0;
      state.sampleTime = foundation::now();
      follow(self, translation);
      break;
    case UIGestureRecognizerState::Changed:
      follow(self, translation);
      break;
    case UIGestureRecognizerState::Ended:
      if (foundation::now() - state.sampleTime < maxRest && std::abs(state.velocity) >= minVelocity)
        startDeceleration(self);
      break;
    default:
      break;
  }
}

// A touch that stops the view does not reach the subviews.
UIView* hitTest(UIScrollView* self, CGPoint point, NSObject* event) {
  auto* const hit = objc::sendSuper<"UIScrollView", UIView*, "hitTest:withEvent:">(self, point, event);
  if (hit == nullptr || !objc::state(self).isDecelerating) return hit;
  stop(self);
  return self;
}

}  // namespace

void defineScrollView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"_contentHeight", &contentHeight>(),
      objc::method<"_setContentHeight:", &setContentHeight>(),
      objc::method<"_setContentOffset:", &setContentOffset>(),
      objc::method<"_handlePan:", &handlePan>(),
      objc::method<"hitTest:withEvent:", &hitTest>(),
  };
  objc::defineClassWithState<UIScrollView>(methods);
}

}  // namespace uikit
