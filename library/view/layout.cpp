#include "library/view/layout.hpp"

#include "library/view/brim_container_state.hpp"
#include "library/view/layout_parts.hpp"
#include "platform/ui_device.hpp"
#include "platform/ui_window.hpp"

namespace {

constexpr NSInteger barTopBelowSafeArea = 44;
constexpr NSInteger barTopWithoutSafeArea = 65;

void hideContent(BrimContainerState& state) {
  state.header = objc::retain(localized(state, "CONTENT_HIDDEN"_ns, "Content hidden"_ns));
  state.body = objc::retain(""_ns);
  state.subHeader = nullptr;
}

NSInteger barTop(const BrimContainerState& state) {
  const UIEdgeInsets insets = UIApplication::sharedApplication()->keyWindow()->safeAreaInsets();
  return state.statusbar && insets.bottom <= 0 ? barTopWithoutSafeArea : barTopBelowSafeArea;
}

// Which blur lies behind what.
struct BlurStyles {
  UIBlurEffectStyle backdrop;
  UIBlurEffectStyle background;
};

BlurStyles blurStyles(const BrimContainerState& state) {
  using Style = UIBlurEffectStyle;
  if (systemVersionIsBelow("13.0"_ns)) return {Style::Regular, Style::Regular};
  switch (state.colorSet->mode()) {
    case darkMode:
    case blackMode:
      return {Style::Dark, Style::Dark};
    case lightMode:
      return {Style::Light, Style::Light};
    default:
      return {Style::Regular, Style::Regular};
  }
}

void addKeyboardBackdrop(BrimContainer* self, BrimContainerState& state, UIBlurEffectStyle style) {
  UIView* superview = self->superview();
  state.keyboardBackdrop = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(style));
  UIVisualEffectView* backdrop = state.keyboardBackdrop;
  backdrop->setFrame(superview->bounds());
  backdrop->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  backdrop->setClipsToBounds(true);
  backdrop->setAlpha(0);
  backdrop->setHidden(true);
  backdrop->addGestureRecognizer(UITapGestureRecognizer::withTarget(self, objc::selector<"dismissButtonPressed:">()));
  superview->addSubview(backdrop);
  superview->sendSubviewToBack(backdrop);
}

void placeBanner(BrimContainer* self, BrimContainerState& state) {
  UIView* superview = self->superview();
  self->setTranslatesAutoresizingMaskIntoConstraints(false);
  self->setContentMode(UIViewContentMode::Top);
  self->leadingAnchor()->equalTo(superview->leadingAnchor())->activated();
  self->trailingAnchor()->equalTo(superview->trailingAnchor())->activated();
  state.top = objc::retain(self->topAnchor()->equalTo(superview->topAnchor()));
  self->updateTop(self->defaultOffset());
  CALayer* layer = self->layer();
  layer->setBackgroundColor(state.colorSet->containerBackgroundColor()->CGColor());
  layer->setCornerRadius(static_cast<CGFloat>(state.containerCornerRadius));
  layer->setContinuousCorners(true);
  self->setUserInteractionEnabled(true);
  state.showingReply = false;
}

void addBackgroundBlur(BrimContainer* self, const BrimContainerState& state, UIBlurEffectStyle style) {
  if (state.colorSet->mode() == blackMode || !state.backgroundBlur) return;
  const auto blur = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(style));
  blur->setFrame(self->bounds());
  blur->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  blur->layer()->setCornerRadius(static_cast<CGFloat>(state.containerCornerRadius));
  blur->layer()->setContinuousCorners(true);
  blur->setClipsToBounds(true);
  self->addSubview(blur);
  self->sendSubviewToBack(blur);
}

}  // namespace

void layOut(BrimContainer* self) {
  BrimContainerState& state = objc::state(self);
  if (state.enablePrivacy) hideContent(state);
  state.barTop = barTop(state);
  const BlurStyles styles = blurStyles(state);
  addKeyboardBackdrop(self, state, styles.backdrop);
  placeBanner(self, state);
  addBackgroundBlur(self, state, styles.background);
  layOutStatusLine(self, state);
  layOutIcon(self, state);
  layOutTexts(self, state);
  layOutBottom(self, state);
  layOutButtons(self, state);
  layOutReply(self, state);
}
