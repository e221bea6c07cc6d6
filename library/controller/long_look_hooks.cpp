#include "library/controller/long_look_hooks.hpp"

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
