#include "library/view/button_taps.hpp"

#include "library/view/brim_container_state.hpp"
#include "library/view/reply_field.hpp"

namespace {

// Indexes in the list of an alarm's actions. If the alarm cannot be snoozed, the list contains only the stop action.
constexpr NSUInteger snoozeAction = 0;
constexpr NSUInteger stopActionAfterSnooze = 1;
constexpr NSUInteger onlyStopAction = 0;

objc::Ref<BrimNotificationDelegate> delegateOf(BrimContainer* self) { return objc::state(self).delegate.lock(); }

}  // namespace

void replyButtonPressed(BrimContainer* self, NSObject*) {
  if (!objc::state(self).isAlarm) openReplyField(self);
}

void clearButtonPressed(BrimContainer* self, NSObject*) { delegateOf(self)->attemptDelete(self); }

void closeButtonPressed(BrimContainer* self, NSObject*) { delegateOf(self)->forceDismissNotification(self); }

void dismissButtonPressed(BrimContainer* self, NSObject*) {
  objc::state(self).reply->setText(""_ns);
  delegateOf(self)->forceDismissNotification(self);
}

void snoozeButtonPressed(BrimContainer* self, NSObject*) { delegateOf(self)->executeOnAlarm(self, snoozeAction); }

void stopAlarmButtonPressed(BrimContainer* self, NSObject*) {
  delegateOf(self)->executeOnAlarm(self, objc::state(self).isSnoozable ? stopActionAfterSnooze : onlyStopAction);
}
