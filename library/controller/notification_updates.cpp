#include "library/controller/notification_updates.hpp"

#include "library/controller/commands.hpp"
#include "library/controller/notification_text.hpp"

void presentViewController(
    objc::Original<void(NotificationController*, UIViewController*, bool, objc::Block<void()>*)> original,
    NotificationController* self, UIViewController* presented, bool animated, objc::Block<void()>* completion) {
  if (!self->isPartOfBanner() || BrimContainer::DismissNotification()) {
    original(self, presented, animated, completion);
  } else {
    self->attemptUpdateReply(presented->view());
  }
}

void attemptUpdateReply(NotificationController* self, NCNotificationViewControllerView* view) {
  NCNotificationShortLookView* content = view->contentView();
  NSString* header = headerText(content);
  NSString* body = bodyText(content);
  if (header == nullptr || body == nullptr) return;
  postUpdate(header, body);
  self->attemptDelete();
}

void appendUpdate(BannerController* self, NSString* header, NSString* body) {
  BrimContainer* banner = self->brimView();
  if (banner == nullptr || !banner->canReply() || banner->headerLabel()->text() == nullptr) return;
  if (banner->originalHeader()->isEqualToString(header)) banner->updateForContinuousNotification(body);
}
