#include "library/view/layout_parts.hpp"

namespace {

constexpr CGFloat grabberWidth = 36;
constexpr CGFloat grabberHeight = 5.33;
constexpr CGFloat grabberRadius = 2.665;
constexpr CGFloat grabberAboveBottom = 6;
constexpr CGFloat rowMargin = 15;
constexpr CGFloat rowHeight = 36;
constexpr CGFloat rowBelowContent = 8;
constexpr CGFloat rowRadius = 18;
constexpr CGFloat buttonSpacing = 15;
constexpr CGFloat buttonFontSize = 13;
constexpr CGFloat replyFontSize = 15;
constexpr CGFloat replyInset = 10;

void layOutGrabber(BrimContainer* self, BrimContainerState& state) {
  state.grabber = placed<UIView>();
  state.grabber->setBackgroundColor(state.colorSet->containerGrabberColor());
  roundCorners(state.grabber, grabberRadius);
  self->addSubview(state.grabber);
  state.grabber->centerXAnchor()->equalTo(self->centerXAnchor())->activated();
  setSize(state.grabber, grabberWidth, grabberHeight);
  state.grabber->bottomAnchor()->equalTo(self->bottomAnchor(), -grabberAboveBottom)->activated();
}

// A button of the row; without an action it is there to be seen, and disabled.
objc::Ref<UIButton> addButton(BrimContainer* self, BrimContainerState& state, NSString* title, UIColor* titleColor,
                              SEL action) {
  objc::Ref<UIButton> button = UIView::withFrame<UIButton>({});
  button->setTitle(title, UIControlState::Normal);
  button->setTitleColor(titleColor, UIControlState::Normal);
  button->titleLabel()->setFont(state.boldButtons ? UIFont::boldSystemFontOfSize(buttonFontSize)
                                                  : UIFont::systemFontOfSize(buttonFontSize));
  button->setBackgroundColor(state.colorSet->containerButtonColor());
  roundCorners(button, rowRadius);
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
    state.snoozeButton = addButton(self, state, localized(state, "SNOOZE"_ns, "Snooze"_ns),
                                   state.colorSet->containerTextColor(), objc::selector<"snoozeButtonPressed:">());
  state.stopAlarmButton =
      addButton(self, state, localized(state, "STOP"_ns, "Stop"_ns), state.colorSet->containerDeleteColor(),
                objc::selector<"stopAlarmButtonPressed:">());
}

void addMessageButtons(BrimContainer* self, BrimContainerState& state) {
  UIColor* text = state.colorSet->containerTextColor();
  state.closeButton =
      addButton(self, state, localized(state, "CLOSE"_ns, "Close"_ns), text, objc::selector<"closeButtonPressed:">());
  state.clearButton = addButton(self, state, localized(state, "CLEAR"_ns, "Clear"_ns),
                                state.colorSet->containerDeleteColor(), objc::selector<"clearButtonPressed:">());
  state.replyButton = state.canReply ? addButton(self, state, localized(state, "REPLY"_ns, "Reply"_ns), text,
                                                 objc::selector<"replyButtonPressed:">())
                                     : addButton(self, state, localized(state, "OPEN"_ns, "Open"_ns), text, nullptr);
}

void makeReplyViews(BrimContainerState& state) {
  state.replyBackground = placed<UIView>();
  state.replyBackground->setBackgroundColor(state.colorSet->containerReplyColor());
  roundCorners(state.replyBackground, rowRadius);

  state.reply = placed<BrimTextField>();
  BrimTextField* field = state.reply;
  field->setTextColor(state.colorSet->containerTextColor());
  field->setBackgroundColor(UIColor::clearColor());
  field->setFont(UIFont::systemFontOfSize(replyFontSize));
  field->setBorderStyle(UITextBorderStyle::None);
  field->setKeyboardType(UIKeyboardType::Default);
  field->setReturnKeyType(UIReturnKeyType::Send);
  field->setContentVerticalAlignment(UIControlContentVerticalAlignment::Center);
  field->setUserInteractionEnabled(state.canReply);
  field->setEnabled(state.canReply);
}

void placeReplyField(const BrimContainerState& state) {
  UIView* background = state.replyBackground;
  BrimTextField* field = state.reply;
  field->topAnchor()->equalTo(background->topAnchor())->activated();
  field->leadingAnchor()->equalTo(background->leadingAnchor(), replyInset)->activated();
  field->trailingAnchor()->equalTo(background->trailingAnchor(), -replyInset)->activated();
  field->bottomAnchor()->equalTo(background->bottomAnchor())->activated();
}

void connectReplyField(BrimContainer* self, BrimTextField* field) {
  field->addTarget(self, objc::selector<"startEditing">(), UIControlEvents::EditingDidBegin);
  field->addTarget(self, objc::selector<"endEditing">(), UIControlEvents::EditingDidEnd);
  field->addTarget(self, objc::selector<"finishedEditing">(), UIControlEvents::EditingDidEndOnExit);
}

}  // namespace

void placeInControlRow(BrimContainer* self, const BrimContainerState& state, UIView* row) {
  row->leadingAnchor()->equalTo(self->leadingAnchor(), rowMargin)->activated();
  row->trailingAnchor()->equalTo(self->trailingAnchor(), -rowMargin)->activated();
  row->heightAnchor()->equalToConstant(rowHeight)->activated();
  row->topAnchor()->atLeast(state.bodyLabel->bottomAnchor(), rowBelowContent)->activated();
  row->topAnchor()->atLeast(state.iconView->bottomAnchor(), rowBelowContent)->activated();
}

void layOutBottom(BrimContainer* self, BrimContainerState& state) {
  NSLayoutYAxisAnchor* bottom = self->bottomAnchor();
  state.heightBelowBody = objc::retain(bottom->atLeast(state.bodyLabel->bottomAnchor()));
  state.heightBelowIcon = objc::retain(bottom->atLeast(state.iconView->bottomAnchor()));
  state.heightBelowHeader = objc::retain(bottom->atLeast(state.headerLabel->bottomAnchor()));
  self->updateHeight(self->defaultHeight());
  if (state.enableGrabber) layOutGrabber(self, state);
}

void layOutButtons(BrimContainer* self, BrimContainerState& state) {
  if (!state.enableButtons) return;
  state.buttonRow = placed<UIStackView>();
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
  placeInControlRow(self, state, row);
  self->setButtonsAlpha(0);
}

void layOutReply(BrimContainer* self, BrimContainerState& state) {
  makeReplyViews(state);
  objc::send<void, "setReplyAlpha:">(self, CGFloat{0});
  if (!state.canReply) return;
  for (UIView* view : {state.replyBackground.get(), static_cast<UIView*>(state.reply.get())}) {
    self->addSubview(view);
    self->bringSubviewToFront(view);
  }
  placeInControlRow(self, state, state.replyBackground);
  placeReplyField(state);
  connectReplyField(self, state.reply);
}
