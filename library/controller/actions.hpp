// The actions of a banner's notification. These functions find the actions and ask the platform to execute them. If the
// argument `view` is nil, it means the controller's attached banner. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// If the controller has no notification request, the next five functions return nil or false.

// Returns the snooze action and the close action, in this order. A missing action is omitted.
NSArray* getAlarmActions(BannerController* self);
// Whether the notification is from the Clock application.
bool isAlarm(BannerController* self);
// Returns the bundle identifier of the notification's application.
NSString* getBundleId(BannerController* self);
// Whether the notification has a reply action or is from the Messages app.
bool canReply(BannerController* self);
// Returns the first action whose identifier indicates a reply, or nil.
NCNotificationAction* getReplyAction(BannerController* self);

// Executes the clear action, if there is one, and dismisses the banner.
void attemptDelete(BannerController* self, BrimContainer* view);
// Executes the clear action, if there is one. The banner stays.
void executeClearAction(NotificationController* self);
// Executes the silence action, if there is one. The banner stays.
void attemptSilence(BannerController* self, BrimContainer* view);
// Executes the action at the index in getAlarmActions and dismisses the banner. If the index is out of range, only
// dismisses the banner.
void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index);
// Executes the reply action with the text, and then calls attemptDelete. If there is no reply action, sends the text
// through the Messages app instead.
void sendReply(BannerController* self, BrimContainer* view, NSString* text);
