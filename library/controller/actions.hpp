// What a banner's user can do with the notification, handed back to the platform; and what the banner asks about it.
#pragma once

#include "library/controller/banner_controller.hpp"

// Without a request every question is answered with no, or nil.
NSArray* getAlarmActions(BannerController* self);
bool isAlarm(BannerController* self);
NSString* getBundleId(BannerController* self);
bool canReply(BannerController* self);
NCNotificationAction* getReplyAction(BannerController* self);

void attemptDelete(BannerController* self, BrimContainer* view);
void attemptDeleteQuietly(NotificationController* self);
void attemptSilence(BannerController* self, BrimContainer* view);
// An index outside the alarm's actions stands for no action.
void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index);
void sendReply(BannerController* self, BrimContainer* view, NSString* text);
