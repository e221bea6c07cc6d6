// The actions that remove or silence a notification. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Returns the bundle identifier of the notification's application, or nil if the controller has no notification
// request.
NSString* getBundleId(BannerController* self);

// Executes the clear action, if there is one, and dismisses the banner. A nil view represents the controller's attached
// banner.
void attemptDelete(BannerController* self, BrimContainer* view);
// Executes the clear action, if there is one. The banner stays.
void executeClearAction(NotificationController* self);
// Executes the silence action, if there is one. The banner stays.
void attemptSilence(BannerController* self, BrimContainer* view);
