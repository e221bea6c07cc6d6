// Adds a later message of the same conversation to a banner on screen. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// Appends the text to the body, on a separate line. If the text is nil, "(null)" is appended.
void updateForContinuousNotification(BrimContainer* self, NSString* text);
