// Hooks that prevent the platform from presenting its long look or another notification over a banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Whether the controller's view is in the banner window.
bool isPartOfBanner(NotificationController* self);

// Hooks of the long look. In the banner window they do nothing, because banners have no long look. Elsewhere they call
// the original implementation.
void presentLongLookForScroll(objc::Original<void(BannerController*, bool, objc::Block<void(bool)>*)> original,
                              BannerController* self, bool animated, objc::Block<void(bool)>* completion);
void presentLongLookViaClick(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self,
                             NSObject* interaction);
void presentLongLook(objc::Original<void(NotificationController*, bool, NSInteger, objc::Block<void(bool)>*)> original,
                     NotificationController* self, bool animated, NSInteger trigger,
                     objc::Block<void(bool)>* completion);

// Hook. If a banner must stay, another notification is not presented over the banner. Instead, attemptUpdateReply is
// called.
void presentViewController(
    objc::Original<void(NotificationController*, UIViewController*, bool, objc::Block<void()>*)> original,
    NotificationController* self, UIViewController* presented, bool animated, objc::Block<void()>* completion);
// Appends the body of the view's notification to the banner with the same header, and executes the clear action of the
// controller's notification. Does nothing if the header or the body is nil.
void attemptUpdateReply(NotificationController* self, NCNotificationViewControllerView* view);
