// What a tap on each button of a banner does. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// Does nothing in an alarm's banner.
void replyButtonPressed(BrimContainer* self, NSObject* sender);
void clearButtonPressed(BrimContainer* self, NSObject* sender);
void closeButtonPressed(BrimContainer* self, NSObject* sender);
// A tap on the keyboard backdrop: discards the text and dismisses the banner.
void dismissButtonPressed(BrimContainer* self, NSObject* sender);
void snoozeButtonPressed(BrimContainer* self, NSObject* sender);
void stopAlarmButtonPressed(BrimContainer* self, NSObject* sender);
