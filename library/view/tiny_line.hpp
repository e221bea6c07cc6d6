// The single line of a tiny banner: header and body, separated by a colon. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// Shows the line in the header label. If both header and body exist, this also changes the stored header so that it
// ends in a colon and a blank.
void showTinyLine(BrimContainer* self);
