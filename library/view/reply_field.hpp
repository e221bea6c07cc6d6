// The reply field of a banner, in the place of the button row. It is hidden until the banner is expanded. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Creates the field in every banner, but adds it to the banner only if the notification can be answered.
void layOutReplyField(BrimContainer* self, BrimContainerState& state);

// Puts the current colors on the field.
void colorReplyField(const BrimContainerState& state);

// At 0 the field is also hidden.
void setReplyAlpha(BrimContainer* self, CGFloat alpha);

// Fades the button row out and the field in, then opens the keyboard.
void openReplyField(BrimContainer* self);

// The field's editing events. The last one sends the text; an empty text dismisses the banner.
void startEditing(BrimContainer* self);
void endEditing(BrimContainer* self);
void finishedEditing(BrimContainer* self);
