// A banner on screen takes a further line of its conversation, or shows the content it hid.
#pragma once

#include "library/view/brim_container.hpp"

// Appends the text to the body as a line of its own.
void updateForContinuousNotification(BrimContainer* self, NSString* text);
void showContent(BrimContainer* self);
