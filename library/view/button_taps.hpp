// The actions of a banner's buttons. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// Opens the reply field. Does nothing in the banner of an alarm.
void replyButtonPressed(BrimContainer* self, NSObject* sender);
void clearButtonPressed(BrimContainer* self, NSObject* sender);
void closeButtonPressed(BrimContainer* self, NSObject* sender);
// The action of the keyboard backdrop: discards the typed reply and dismisses the banner.
void dismissButtonPressed(BrimContainer* self, NSObject* sender);
void snoozeButtonPressed(BrimContainer* self, NSObject* sender);
void stopAlarmButtonPressed(BrimContainer* self, NSObject* sender);
