#include "library/view/button_row.hpp"

#include "library/utilities/asset_bundle.hpp"
#include "library/view/construction.hpp"
#include "library/view/reply_field.hpp"

namespace {

constexpr CGFloat rowMargin = 15;
constexpr CGFloat rowHeight = 36;
constexpr CGFloat rowBelowContent = 8;
constexpr CGFloat buttonSpacing = 15;
constexpr CGFloat buttonFontSize = 13;

void colorButton(const BrimContainerState& state, UIButton* button, UIColor* titleColor) {
  button->setTitleColor(titleColor, UIControlState::Normal);
  button->setBackgroundColor(state.colorSet->containerButtonColor());
}

// Adds a button to the row. If the action is null, the button is disabled.
objc::Ref<UIButton> addButton(BrimContainer* self, BrimContainerState& state, NSString* title, UIColor* titleColor,
                              SEL action) {
  objc::Ref<UIButton> button = UIView::withFrame<UIButton>({});
  button->setTitle(title, UIControlState::Normal);
  colorButton(state, button, titleColor);
  button->titleLabel()->setFont(state.boldButtons ? UIFont::boldSystemFontOfSize(buttonFontSize)
                                                  : UIFont::systemFontOfSize(buttonFontSize));
  roundCorners(button, buttonRowCornerRadius);
  if (action != nullptr) {
    button->addTarget(self, action, UIControlEvents::TouchUpInside);
  } else {
    button->setEnabled(false);
    button->setUserInteractionEnabled(false);
  }
  state.buttonRow->addArrangedSubview(button);
  return button;
}

void addAlarmButtons(BrimContainer* self, BrimContainerState& state) {
  if (state.isSnoozable)
    state.snoozeButton = addButton(self, state, localizedText(state.assets, "SNOOZE"_ns, "Snooze"_ns),
                                   state.colorSet->containerTextColor(), objc::selector<"snoozeButtonPressed:">());
  state.stopAlarmButton =
      addButton(self, state, localizedText(state.assets, "STOP"_ns, "Stop"_ns), state.colorSet->containerDeleteColor(),
                objc::selector<"stopAlarmButtonPressed:">());
}

void addMessageButtons(BrimContainer* self, BrimContainerState& state) {
  UIColor* text = state.colorSet->containerTextColor();
  state.closeButton = addButton(self, state, localizedText(state.assets, "CLOSE"_ns, "Close"_ns), text,
                                objc::selector<"closeButtonPressed:">());
  state.clearButton = addButton(self, state, localizedText(state.assets, "CLEAR"_ns, "Clear"_ns),
                                state.colorSet->containerDeleteColor(), objc::selector<"clearButtonPressed:">());
  state.replyButton = state.canReply
                          ? addButton(self, state, localizedText(state.assets, "REPLY"_ns, "Reply"_ns), text,
                                      objc::selector<"replyButtonPressed:">())
                          : addButton(self, state, localizedText(state.assets, "OPEN"_ns, "Open"_ns), text, nullptr);
}

void setAlarmButtonVisibility(const BrimContainerState& state, ButtonVisibility visibility) {
  const bool hidden = visibility == ButtonVisibility::Hidden;
  if (state.isSnoozable) state.snoozeButton->setHidden(hidden);
  state.stopAlarmButton->setHidden(hidden);
}

}  // namespace

void layOutButtonRow(BrimContainer* self, BrimContainerState& state) {
  state.buttonRow = makeConstrained<UIStackView>();
  UIStackView* row = state.buttonRow;
  row->setAxis(UILayoutConstraintAxis::Horizontal);
  row->setAlignment(UIStackViewAlignment::Fill);
  row->setDistribution(UIStackViewDistribution::FillEqually);
  row->setSpacing(buttonSpacing);
  row->setContentMode(UIViewContentMode::ScaleToFill);
  if (state.isAlarm) {
    addAlarmButtons(self, state);
  } else {
    addMessageButtons(self, state);
  }
  self->addSubview(row);
  placeInButtonRow(self, state, row);
  self->setButtonsAlpha(0);
}

void placeInButtonRow(BrimContainer* self, const BrimContainerState& state, UIView* view) {
  view->leadingAnchor()->equalTo(self->leadingAnchor(), rowMargin)->activated();
  view->trailingAnchor()->equalTo(self->trailingAnchor(), -rowMargin)->activated();
  view->heightAnchor()->equalToConstant(rowHeight)->activated();
  view->topAnchor()->atLeast(state.bodyLabel->bottomAnchor(), rowBelowContent)->activated();
  view->topAnchor()->atLeast(state.iconView->bottomAnchor(), rowBelowContent)->activated();
}

void colorButtons(const BrimContainerState& state) {
  if (!state.enableButtons) return;
  UIColor* text = state.colorSet->containerTextColor();
  UIColor* destructive = state.colorSet->containerDeleteColor();
  if (state.isAlarm) {
    if (state.isSnoozable) colorButton(state, state.snoozeButton, text);
    colorButton(state, state.stopAlarmButton, destructive);
  } else {
    colorButton(state, state.closeButton, text);
    colorButton(state, state.clearButton, destructive);
    colorButton(state, state.replyButton, text);
  }
}

void setButtonsAlpha(BrimContainer* self, CGFloat alpha) {
  const BrimContainerState& state = objc::state(self);
  if (state.showingReply) return;
  if (!state.enableButtons) {
    setReplyAlpha(self, alpha);
    return;
  }
  const ButtonVisibility visibility = alpha == 0 ? ButtonVisibility::Hidden : ButtonVisibility::Shown;
  if (state.isAlarm) {
    setAlarmButtonVisibility(state, visibility);
  } else {
    setMessageButtonVisibility(state, visibility);
  }
  state.buttonRow->setAlpha(alpha);
}

void setMessageButtonVisibility(const BrimContainerState& state, ButtonVisibility visibility) {
  const bool hidden = visibility == ButtonVisibility::Hidden;
  state.clearButton->setHidden(hidden);
  state.replyButton->setHidden(hidden);
  state.closeButton->setHidden(hidden);
}
