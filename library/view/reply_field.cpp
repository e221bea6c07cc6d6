#include "library/view/reply_field.hpp"

#include "library/view/button_row.hpp"
#include "library/view/construction.hpp"
#include "library/view/keyboard_avoidance.hpp"
#include "platform/ui_window.hpp"

namespace {

constexpr CGFloat replyFontSize = 15;
constexpr CGFloat replyInset = 10;
// In seconds.
constexpr double openDuration = 0.15;

void makeReplyViews(BrimContainerState& state) {
  state.replyBackground = makeConstrained<UIView>();
  state.replyBackground->setBackgroundColor(state.colorSet->containerReplyColor());
  roundCorners(state.replyBackground, buttonRowCornerRadius);

  state.reply = makeConstrained<BrimTextField>();
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

void openKeyboard(BrimContainer* self) {
  BrimContainerState& state = objc::state(self);
  setMessageButtonVisibility(state, ButtonVisibility::Hidden);
  state.reply->becomeFirstResponder();
  state.showingReply = true;
}

}  // namespace

void layOutReplyField(BrimContainer* self, BrimContainerState& state) {
  makeReplyViews(state);
  objc::send<void, "setReplyAlpha:">(self, CGFloat{0});
  if (!state.canReply) return;
  for (UIView* view : {state.replyBackground.get(), static_cast<UIView*>(state.reply.get())}) {
    self->addSubview(view);
    self->bringSubviewToFront(view);
  }
  placeInButtonRow(self, state, state.replyBackground);
  placeReplyField(state);
  connectReplyField(self, state.reply);
  observeKeyboard(state);
}

void colorReplyField(const BrimContainerState& state) {
  if (!state.canReply) return;
  state.reply->setTextColor(state.colorSet->containerTextColor());
  state.replyBackground->setBackgroundColor(state.colorSet->containerReplyColor());
}

void setReplyAlpha(BrimContainer* self, CGFloat alpha) {
  const BrimContainerState& state = objc::state(self);
  state.replyBackground->setHidden(alpha == 0);
  state.reply->setHidden(alpha == 0);
  state.replyBackground->setAlpha(alpha);
  state.reply->setAlpha(alpha);
}

void openReplyField(BrimContainer* self) {
  const BrimContainerState& state = objc::state(self);
  state.replyBackground->setHidden(false);
  state.reply->setHidden(false);
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const auto fade = objc::block([banner] {
    const BrimContainerState& current = objc::state(banner.get());
    current.replyBackground->setAlpha(1);
    current.reply->setAlpha(1);
    current.buttonRow->setAlpha(0);
  });
  const auto open = objc::block([banner](bool finished) {
    if (finished) openKeyboard(banner);
  });
  UIView::animate(openDuration, fade, open);
}

void startEditing(BrimContainer* self) {
  self->window()->makeKeyAndVisible();
  self->setOverlayWithAnimation(1);
}

void endEditing(BrimContainer*) {}

void finishedEditing(BrimContainer* self) {
  const objc::Ref<BrimNotificationDelegate> delegate = objc::state(self).delegate.lock();
  NSString* text = objc::state(self).reply->text();
  if (text->isEqualToString(""_ns) || text->isEqualToString(" "_ns)) {
    delegate->forceDismissNotification(self);
  } else {
    delegate->sendReply(self, text);
  }
}
