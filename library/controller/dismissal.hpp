// The end of a banner: every way to it goes through these, and each banner leaves the screen once.
#pragma once

#include "library/controller/banner_controller.hpp"
#include "objc/hook.hpp"

void clearDismissalFlags(BannerController* controller);
// Dismisses the banner by itself "timeToDismiss" seconds from now, unless something else has by then.
void scheduleAutomaticDismissal(BannerController* controller);

bool shouldAutoDismiss(BannerController* self);
void forceDismissNotification(BannerController* self, BrimContainer* view);
void attemptDismissNotification(BannerController* self, BrimContainer* view, bool forced);
void preDismiss(BannerController* self);

void handleTap(objc::Original<void(BannerController*, NSObject*)> original, BannerController* self, NSObject* view);
void dismissViewController(objc::Original<void(BannerController*, NSInteger, objc::Block<void(bool)>*)> original,
                           BannerController* self, NSInteger transition, objc::Block<void(bool)>* completion);
