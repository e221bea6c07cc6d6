// Adds a later message of the same conversation to a banner on screen. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// Appends the text to the body, on a line of its own. nil appends "(null)".
void updateForContinuousNotification(BrimContainer* self, NSString* text);
