#include "library/controller/presentation_hooks.hpp"

#include "library/controller/commands.hpp"
#include "library/controller/notification_text.hpp"

bool isPartOfBanner(NotificationController* self) {
  for (UIView* view = self->view(); view != nullptr; view = view->superview())
    if (__builtin_strcmp(object_getClassName(objc::detail::toId(view)), "SBNotificationBannerWindow") == 0) return true;
  return false;
}

void presentLongLookForScroll(objc::Original<void(BannerController*, bool, objc::Block<void(bool)>*)> original,
                              BannerController* self, bool animated, objc::Block<void(bool)>* completion) {
  if (!self->isPartOfBanner()) original(self, animated, completion);
}

void presentLongLookViaClick(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self,
                             NSObject* interaction) {
  if (!self->isPartOfBanner()) original(self, interaction);
}

void presentLongLook(objc::Original<void(NotificationController*, bool, NSInteger, objc::Block<void(bool)>*)> original,
                     NotificationController* self, bool animated, NSInteger trigger,
                     objc::Block<void(bool)>* completion) {
  if (!self->isPartOfBanner()) original(self, animated, trigger, completion);
}

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
