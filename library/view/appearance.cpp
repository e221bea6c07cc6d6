#include "library/view/appearance.hpp"

#include "library/view/brim_container_state.hpp"
#include "library/view/glyphs.hpp"

namespace {

constexpr double fadeDuration = 0.8;

void colourTexts(BrimContainer* self, const BrimContainerState& state) {
  self->layer()->setBackgroundColor(state.colorSet->containerBackgroundColor()->CGColor());
  UIColor* text = state.colorSet->containerTextColor();
  for (BrimLabel* label : {state.clockLabel.get(), state.nowLabel.get(), state.headerLabel.get(),
                           state.subHeaderLabel.get(), state.bodyLabel.get()})
    label->setTextColor(text);
  state.grabber->setBackgroundColor(state.colorSet->containerGrabberColor());
}

void colourButton(const BrimContainerState& state, UIButton* button, UIColor* title) {
  button->setTitleColor(title, UIControlState::Normal);
  button->setBackgroundColor(state.colorSet->containerButtonColor());
}

void colourButtons(const BrimContainerState& state) {
  if (!state.enableButtons) return;
  UIColor* text = state.colorSet->containerTextColor();
  UIColor* destructive = state.colorSet->containerDeleteColor();
  if (state.isAlarm) {
    if (state.isSnoozable) colourButton(state, state.snoozeButton, text);
    colourButton(state, state.stopAlarmButton, destructive);
  } else {
    colourButton(state, state.closeButton, text);
    colourButton(state, state.clearButton, destructive);
    colourButton(state, state.replyButton, text);
  }
}

void colourReply(const BrimContainerState& state) {
  if (!state.canReply) return;
  state.reply->setTextColor(state.colorSet->containerTextColor());
  state.replyBackground->setBackgroundColor(state.colorSet->containerReplyColor());
}

}  // namespace

void updateColors(BrimContainer* self) {
  const BrimContainerState& state = objc::state(self);
  colourTexts(self, state);
  recolourGlyph(self);
  colourButtons(state);
  colourReply(state);
}

void updateColorMode(BrimContainer* self, BrimColors* colors) {
  if (objc::state(self).colorSet->useCustomColors()) return;
  self->setColorSet(colors);
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const auto fade = objc::block([banner] {
    const BrimContainerState& state = objc::state(banner.get());
    colourTexts(banner, state);
    colourButtons(state);
    colourReply(state);
    banner->layoutIfNeeded();
  });
  UIView::animate(fadeDuration, fade);
}
