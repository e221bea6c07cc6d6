// The actions of an alarm: snooze and stop. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Returns whether the notification is from the Clock application, or false if the controller has no request.
bool isAlarm(BannerController* self);
// Returns the snooze action and the close action, in this order. A missing action is omitted. Returns nil if the
// controller has no notification request.
NSArray* getAlarmActions(BannerController* self);
// Executes the action at the index in getAlarmActions and dismisses the banner. If the index is out of range, only
// dismisses the banner. A nil view represents the controller's attached banner.
void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index);
