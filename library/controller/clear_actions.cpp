#include "library/controller/clear_actions.hpp"

#include "library/controller/haptic.hpp"
#include "library/controller/request_actions.hpp"

NSString* getBundleId(BannerController* self) { return self->notificationRequest()->sectionIdentifier(); }

void attemptDelete(BannerController* self, BrimContainer* view) {
  if (NCNotificationAction* clear = self->notificationRequest()->clearAction()) {
    execute(self, clear);
    confirmWithHaptic();
  }
  self->forceDismissNotification(view);
}

void executeClearAction(NotificationController* self) {
  if (NCNotificationAction* clear = self->notificationRequest()->clearAction()) execute(self, clear);
}

void attemptSilence(BannerController* self, BrimContainer*) {
  NCNotificationAction* silence = self->notificationRequest()->silenceAction();
  if (silence == nullptr) return;
  execute(self, silence);
  confirmWithHaptic();
}
