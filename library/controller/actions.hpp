// The actions of a banner's notification: which ones exist, and their execution by the platform. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Without a request these return nil or false.

// The snooze action if there is one, then the close action.
NSArray* getAlarmActions(BannerController* self);
bool isAlarm(BannerController* self);
NSString* getBundleId(BannerController* self);
bool canReply(BannerController* self);
NCNotificationAction* getReplyAction(BannerController* self);

// Executes the clear action and dismisses the banner.
void attemptDelete(BannerController* self, BrimContainer* view);
// Executes the clear action only.
void executeClearAction(NotificationController* self);
// Executes the silence action; the banner stays.
void attemptSilence(BannerController* self, BrimContainer* view);
// Executes the alarm action at the index and dismisses the banner. Executes none if the index is out of range.
void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index);
// Executes the reply action with the text and deletes the notification. Without a reply action, sends the text through
// the Messages app.
void sendReply(BannerController* self, BrimContainer* view, NSString* text);
