#include "library/view/blur.hpp"

#include "library/view/construction.hpp"
#include "platform/dispatch.hpp"
#include "platform/ui_device.hpp"

namespace {

// In seconds.
constexpr double overlayFadeDuration = 0.3;

UIBlurEffectStyle blurStyle(const BrimContainerState& state) {
  if (systemVersionIsBelow("13.0"_ns)) return UIBlurEffectStyle::Regular;
  switch (state.colorSet->mode()) {
    case darkMode:
    case blackMode:
      return UIBlurEffectStyle::Dark;
    case lightMode:
      return UIBlurEffectStyle::Light;
    default:
      return UIBlurEffectStyle::Regular;
  }
}

objc::Ref<UIVisualEffectView> makeBlur(const BrimContainerState& state, CGRect frame) {
  objc::Ref<UIVisualEffectView> blur = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(blurStyle(state)));
  blur->setFrame(frame);
  blur->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  blur->setClipsToBounds(true);
  return blur;
}

}  // namespace

void addKeyboardBackdrop(BrimContainer* self, BrimContainerState& state) {
  UIView* superview = self->superview();
  state.keyboardBackdrop = makeBlur(state, superview->bounds());
  UIVisualEffectView* backdrop = state.keyboardBackdrop;
  backdrop->setAlpha(0);
  backdrop->setHidden(true);
  backdrop->addGestureRecognizer(UITapGestureRecognizer::withTarget(self, objc::selector<"dismissButtonPressed:">()));
  superview->addSubview(backdrop);
  superview->sendSubviewToBack(backdrop);
}

void addBackgroundBlur(BrimContainer* self, const BrimContainerState& state) {
  if (state.colorSet->mode() == blackMode || !state.backgroundBlur) return;
  const auto blur = makeBlur(state, self->bounds());
  roundCorners(blur, points(state.containerCornerRadius));
  self->addSubview(blur);
  self->sendSubviewToBack(blur);
}

void setOverlay(BrimContainer* self, CGFloat alpha) {
  const BrimContainerState& state = objc::state(self);
  if (!state.backgroundBlur) return;
  if (alpha > 0) state.keyboardBackdrop->setHidden(false);
  const objc::Ref<UIVisualEffectView> backdrop = state.keyboardBackdrop;
  const objc::Weak<BrimContainer> weakBanner(self);
  const auto fade = objc::block([backdrop, alpha] { backdrop->setAlpha(alpha); });
  const auto hide = objc::block([weakBanner, alpha](bool finished) {
    onMainQueue([weakBanner, alpha, finished] {
      const objc::Ref<BrimContainer> banner = weakBanner.lock();
      if (alpha == 0 && finished && banner != nullptr) objc::state(banner.get()).keyboardBackdrop->setHidden(true);
    });
  });
  UIView::animate(overlayFadeDuration, fade, hide);
}
