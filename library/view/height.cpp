#include "library/view/height.hpp"

#include "library/view/brim_container_state.hpp"
#include "platform/dispatch.hpp"

namespace {

constexpr CGFloat paddingWithGrabber = 22;
constexpr CGFloat paddingWithoutGrabber = 16.67;
// Room for the row of buttons, or the reply field, and its distance from the content.
constexpr CGFloat expansion = 41;
// A banner with neither needs less.
constexpr CGFloat reductionWithoutControls = 30;
constexpr CGFloat hiddenAboveScreen = -70;
constexpr CGFloat dismissThreshold = -20;
constexpr double animationDuration = 0.15;

void activate(NSLayoutConstraint* constraint) {
  if (constraint != nullptr && !constraint->isActive()) constraint->setActive(true);
}

}  // namespace

CGFloat defaultHeight(BrimContainer* self) {
  return objc::state(self).enableGrabber ? paddingWithGrabber : paddingWithoutGrabber;
}
CGFloat defaultExpandedHeight(BrimContainer* self) { return self->defaultHeight() + expansion; }
CGFloat defaultOffset(BrimContainer*) { return hiddenAboveScreen; }
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
    self->updateTop(value, true, animationDuration, completion);
  } else {
    self->updateTop(value);
  }
}

void updateTopFor(BrimContainer* self, CGFloat value, bool animated, double duration,
                  objc::Block<void(bool)>* completion) {
  if (!animated) {
    self->updateTop(value);
    return;
  }
  if (self->superview() == nullptr) return;
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const objc::BlockRef<void(bool)> whenDone(completion);
  onMainQueue([banner, value, duration, whenDone] {
    const auto move = objc::block([banner, value] {
      objc::state(banner.get()).top->setConstant(value);
      banner->superview()->layoutIfNeeded();
    });
    UIView::animate(duration, move, whenDone);
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
  UIView::animate(animationDuration, resize, completion);
}

void setMaxLineCount(BrimContainer* self, NSInteger lines) {
  BrimContainerState& state = objc::state(self);
  state.maxLineCount = lines;
  state.showingAllLines = true;
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const auto show = objc::block([banner, lines] {
    const BrimContainerState& shown = objc::state(banner.get());
    (shown.tinyBanner ? shown.headerLabel : shown.bodyLabel)->setNumberOfLines(lines);
    banner->superview()->layoutIfNeeded();
  });
  UIView::animate(animationDuration, show);
}
