// The single line of a tiny banner: header and body, separated by a colon. Main thread.
#pragma once

#include "library/view/brim_container.hpp"

// Shows the line in the header label. If the banner has both a header and a body, this function also changes the stored
// header: the header then ends with the colon that separates it from the body.
void showTinyLine(BrimContainer* self);
