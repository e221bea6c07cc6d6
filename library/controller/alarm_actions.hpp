// The actions of an alarm: snooze and stop. Main thread.
#pragma once

#include "library/controller/banner_controller.hpp"

// Whether the notification is from the Clock application. False if the controller has no notification request.
bool isAlarm(BannerController* self);
// Returns the snooze action and the close action, in this order. A missing action is omitted. Returns nil if the
// controller has no notification request.
NSArray* getAlarmActions(BannerController* self);
// Executes the action at the index in getAlarmActions and dismisses the banner. If the index is out of range, only
// dismisses the banner. If the view is nil, it means the controller's attached banner.
void executeOnAlarm(BannerController* self, BrimContainer* view, NSUInteger index);
