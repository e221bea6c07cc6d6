#include "library/view/color_update.hpp"

#include "library/view/brim_container_state.hpp"
#include "library/view/button_row.hpp"
#include "library/view/icon_and_badge.hpp"
#include "library/view/reply_field.hpp"

namespace {

// In seconds.
constexpr double fadeDuration = 0.8;

void colorBackgroundAndTexts(BrimContainer* self, const BrimContainerState& state) {
  self->layer()->setBackgroundColor(state.colorSet->containerBackgroundColor()->CGColor());
  UIColor* text = state.colorSet->containerTextColor();
  for (BrimLabel* label : {state.clockLabel.get(), state.nowLabel.get(), state.headerLabel.get(),
                           state.subHeaderLabel.get(), state.bodyLabel.get()})
    label->setTextColor(text);
  state.grabber->setBackgroundColor(state.colorSet->containerGrabberColor());
}

}  // namespace

void updateColors(BrimContainer* self) {
  const BrimContainerState& state = objc::state(self);
  colorBackgroundAndTexts(self, state);
  recolorGlyph(self);
  colorButtons(state);
  colorReplyField(state);
}

void updateColorMode(BrimContainer* self, BrimColors* colors) {
  if (objc::state(self).colorSet->useCustomColors()) return;
  self->setColorSet(colors);
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const auto fade = objc::block([banner] {
    const BrimContainerState& state = objc::state(banner.get());
    colorBackgroundAndTexts(banner, state);
    colorButtons(state);
    colorReplyField(state);
    banner->layoutIfNeeded();
  });
  UIView::animate(fadeDuration, fade);
}
