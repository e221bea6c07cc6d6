// The row of buttons, the reply field and the blur behind a banner that is answered: built hidden, shown as the banner
// opens.
#pragma once

#include "library/view/brim_container.hpp"

void setButtonsAlpha(BrimContainer* self, CGFloat alpha);
void setReplyAlpha(BrimContainer* self, CGFloat alpha);

// What the controls do.
void replyButtonPressed(BrimContainer* self, NSObject* sender);
void clearButtonPressed(BrimContainer* self, NSObject* sender);
void closeButtonPressed(BrimContainer* self, NSObject* sender);
void dismissButtonPressed(BrimContainer* self, NSObject* sender);
void snoozeButtonPressed(BrimContainer* self, NSObject* sender);
void stopAlarmButtonPressed(BrimContainer* self, NSObject* sender);

// The reply field's editing events.
void startEditing(BrimContainer* self);
void endEditing(BrimContainer* self);
void finishedEditing(BrimContainer* self);

// Fades the blur behind the banner.
void setOverlay(BrimContainer* self, CGFloat alpha);
