#include "library/view/buttons.hpp"

#include "library/view/brim_container_state.hpp"
#include "platform/dispatch.hpp"
#include "platform/ui_window.hpp"

namespace {

constexpr double replyDuration = 0.15;
constexpr double overlayDuration = 0.3;

enum AlarmAction : NSUInteger { FirstAction = 0, SecondAction = 1 };

objc::Ref<BrimNotificationDelegate> delegateOf(BrimContainer* self) { return objc::state(self).delegate.lock(); }

void setButtonsHidden(const BrimContainerState& state, bool hidden) {
  state.clearButton->setHidden(hidden);
  state.replyButton->setHidden(hidden);
  state.closeButton->setHidden(hidden);
}

void setAlarmButtonsHidden(const BrimContainerState& state, bool hidden) {
  if (state.isSnoozable) state.snoozeButton->setHidden(hidden);
  state.stopAlarmButton->setHidden(hidden);
}

void openReply(BrimContainer* self) {
  BrimContainerState& state = objc::state(self);
  setButtonsHidden(state, true);
  state.reply->becomeFirstResponder();
  state.showingReply = true;
}

}  // namespace

void setButtonsAlpha(BrimContainer* self, CGFloat alpha) {
  const BrimContainerState& state = objc::state(self);
  if (state.showingReply) return;
  if (!state.enableButtons) {
    setReplyAlpha(self, alpha);
    return;
  }
  if (state.isAlarm) {
    setAlarmButtonsHidden(state, alpha == 0);
  } else {
    setButtonsHidden(state, alpha == 0);
  }
  state.buttonRow->setAlpha(alpha);
}

void setReplyAlpha(BrimContainer* self, CGFloat alpha) {
  const BrimContainerState& state = objc::state(self);
  state.replyBackground->setHidden(alpha == 0);
  state.reply->setHidden(alpha == 0);
  state.replyBackground->setAlpha(alpha);
  state.reply->setAlpha(alpha);
}

void replyButtonPressed(BrimContainer* self, NSObject*) {
  const BrimContainerState& state = objc::state(self);
  if (state.isAlarm) return;
  state.replyBackground->setHidden(false);
  state.reply->setHidden(false);
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const auto fade = objc::block([banner] {
    const BrimContainerState& shown = objc::state(banner.get());
    shown.replyBackground->setAlpha(1);
    shown.reply->setAlpha(1);
    shown.buttonRow->setAlpha(0);
  });
  const auto open = objc::block([banner](bool finished) {
    if (finished) openReply(banner);
  });
  UIView::animate(replyDuration, fade, open);
}

void clearButtonPressed(BrimContainer* self, NSObject*) { delegateOf(self)->attemptDelete(self); }

void closeButtonPressed(BrimContainer* self, NSObject*) { delegateOf(self)->forceDismissNotification(self); }

void dismissButtonPressed(BrimContainer* self, NSObject*) {
  objc::state(self).reply->setText(""_ns);
  delegateOf(self)->forceDismissNotification(self);
}

void snoozeButtonPressed(BrimContainer* self, NSObject*) { delegateOf(self)->executeOnAlarm(self, FirstAction); }

// Without a snooze action the list holds the stop action alone.
void stopAlarmButtonPressed(BrimContainer* self, NSObject*) {
  delegateOf(self)->executeOnAlarm(self, objc::state(self).isSnoozable ? SecondAction : FirstAction);
}

void startEditing(BrimContainer* self) {
  self->window()->makeKeyAndVisible();
  self->setOverlayWithAnimation(1);
}

void endEditing(BrimContainer*) {}

void finishedEditing(BrimContainer* self) {
  NSString* text = objc::state(self).reply->text();
  if (text->isEqualToString(""_ns) || text->isEqualToString(" "_ns)) {
    delegateOf(self)->forceDismissNotification(self);
  } else {
    delegateOf(self)->sendReply(self, text);
  }
}

void setOverlay(BrimContainer* self, CGFloat alpha) {
  const BrimContainerState& state = objc::state(self);
  if (!state.backgroundBlur) return;
  if (alpha > 0) state.keyboardBackdrop->setHidden(false);
  const objc::Ref<UIVisualEffectView> backdrop = state.keyboardBackdrop;
  const objc::Weak<BrimContainer> banner(self);
  const auto fade = objc::block([backdrop, alpha] { backdrop->setAlpha(alpha); });
  const auto hide = objc::block([banner, alpha](bool finished) {
    onMainQueue([banner, alpha, finished] {
      const objc::Ref<BrimContainer> still = banner.lock();
      if (alpha == 0 && finished && still != nullptr) objc::state(still.get()).keyboardBackdrop->setHidden(true);
    });
  });
  UIView::animate(overlayDuration, fade, hide);
}
