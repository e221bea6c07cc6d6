#include "library/view/height_and_position.hpp"

#include "platform/dispatch.hpp"

namespace {

constexpr CGFloat paddingWithGrabber = 22;
constexpr CGFloat paddingWithoutGrabber = 16.67;
// The additional height of an expanded banner, which makes room for the button row or the reply field.
constexpr CGFloat expansion = 41;
// An animated change of height subtracts this value if the banner has neither buttons nor a reply field.
constexpr CGFloat reductionWithoutControls = 30;
constexpr CGFloat restingOffset = -70;
constexpr CGFloat dismissThreshold = -20;

void activate(NSLayoutConstraint* constraint) {
  if (constraint != nullptr && !constraint->isActive()) constraint->setActive(true);
}

}  // namespace

void addHeightConstraints(BrimContainer* self, BrimContainerState& state) {
  NSLayoutYAxisAnchor* bottom = self->bottomAnchor();
  state.heightBelowBody = objc::retain(bottom->atLeast(state.bodyLabel->bottomAnchor()));
  state.heightBelowIcon = objc::retain(bottom->atLeast(state.iconView->bottomAnchor()));
  state.heightBelowHeader = objc::retain(bottom->atLeast(state.headerLabel->bottomAnchor()));
  self->updateHeight(self->defaultHeight());
}

CGFloat defaultHeight(BrimContainer* self) {
  return objc::state(self).enableGrabber ? paddingWithGrabber : paddingWithoutGrabber;
}
CGFloat defaultExpandedHeight(BrimContainer* self) { return self->defaultHeight() + expansion; }
CGFloat defaultOffset(BrimContainer*) { return restingOffset; }
CGFloat defaultDismiss(BrimContainer*) { return dismissThreshold; }
CGFloat height(BrimContainer* self) { return objc::state(self).heightBelowBody->constant(); }
CGFloat offset(BrimContainer* self) { return objc::state(self).top->constant(); }

bool isFullyExpanded(BrimContainer* self) {
  const BrimContainerState& state = objc::state(self);
  const CGFloat expanded = self->defaultExpandedHeight();
  return state.heightBelowBody->constant() >= expanded || state.heightBelowIcon->constant() >= expanded ||
         state.heightBelowHeader->constant() >= expanded;
}

void updateTop(BrimContainer* self, CGFloat value) {
  NSLayoutConstraint* top = objc::state(self).top;
  top->setConstant(value);
  activate(top);
}

void updateTopAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion) {
  if (animated) {
    self->updateTop(value, true, resizeDuration, completion);
  } else {
    self->updateTop(value);
  }
}

void updateTopWithDuration(BrimContainer* self, CGFloat value, bool animated, double duration,
                           objc::Block<void(bool)>* completion) {
  if (!animated) {
    self->updateTop(value);
    return;
  }
  if (self->superview() == nullptr) return;
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const objc::BlockRef<void(bool)> onCompletion(completion);
  onMainQueue([banner, value, duration, onCompletion] {
    const auto move = objc::block([banner, value] {
      objc::state(banner.get()).top->setConstant(value);
      banner->superview()->layoutIfNeeded();
    });
    UIView::animate(duration, move, onCompletion);
  });
}

void updateHeight(BrimContainer* self, CGFloat value) {
  const BrimContainerState& state = objc::state(self);
  state.heightBelowIcon->setConstant(value);
  state.heightBelowBody->setConstant(value);
  state.heightBelowHeader->setConstant(value);
  activate(state.heightBelowBody);
  activate(state.heightBelowIcon);
  activate(state.heightBelowHeader);
}

void updateHeightAnimated(BrimContainer* self, CGFloat value, bool animated, objc::Block<void(bool)>* completion) {
  if (!animated) {
    self->updateHeight(value);
    return;
  }
  if (!self->canReply() && !self->enableButtons()) value -= reductionWithoutControls;
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const auto resize = objc::block([banner, value] {
    const BrimContainerState& state = objc::state(banner.get());
    state.heightBelowHeader->setConstant(value);
    state.heightBelowIcon->setConstant(value);
    state.heightBelowBody->setConstant(value);
    banner->superview()->layoutIfNeeded();
  });
  UIView::animate(resizeDuration, resize, completion);
}
