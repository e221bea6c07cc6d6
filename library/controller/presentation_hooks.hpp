// Hooks that keep the platform from presenting something over a banner: its long look, or another notification. Main
// thread.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

// Whether the controller's view is in the banner window.
bool isPartOfBanner(NotificationController* self);

// The long look. These call the original outside the banner window only.
void presentLongLookForScroll(objc::Original<void(BannerController*, bool, objc::Block<void(bool)>*)> original,
                              BannerController* self, bool animated, objc::Block<void(bool)>* completion);
void presentLongLookViaClick(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self,
                             NSObject* interaction);
void presentLongLook(objc::Original<void(NotificationController*, bool, NSInteger, objc::Block<void(bool)>*)> original,
                     NotificationController* self, bool animated, NSInteger trigger,
                     objc::Block<void(bool)>* completion);

// Another notification. It is not presented over a banner that must stay; the banner can take its texts.
void presentViewController(
    objc::Original<void(NotificationController*, UIViewController*, bool, objc::Block<void()>*)> original,
    NotificationController* self, UIViewController* presented, bool animated, objc::Block<void()>* completion);
// Posts the view's texts as an update and executes the notification's clear action. Does nothing without a header or
// without a body.
void attemptUpdateReply(NotificationController* self, NCNotificationViewControllerView* view);
