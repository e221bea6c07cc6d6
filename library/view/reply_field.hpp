// The reply field of a banner, at the position of the button row. It is hidden until the banner is expanded. Main
// thread.
#pragma once

#include "library/view/brim_container_state.hpp"

// Creates the field for every banner, but adds the field to the banner only if the notification can be answered.
void layOutReplyField(BrimContainer* self, BrimContainerState& state);

// Applies the colors of the color set to the field.
void colorReplyField(const BrimContainerState& state);

// Sets the alpha of the field. If the alpha is 0, the field is also hidden.
void setReplyAlpha(BrimContainer* self, CGFloat alpha);

// Fades the button row out and the field in, then opens the keyboard.
void openReplyField(BrimContainer* self);

// The actions for the field's editing events. startEditing shows the keyboard backdrop. finishedEditing runs after the
// return key: it sends the text, or dismisses the banner if the text is empty or a single space.
void startEditing(BrimContainer* self);
void endEditing(BrimContainer* self);
void finishedEditing(BrimContainer* self);
