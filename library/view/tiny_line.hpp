// The single line of a tiny banner, made from header and body.
#pragma once

#include "library/view/brim_container.hpp"

// Whether there is nothing to read in the text.
inline bool isBlank(NSString* text) { return text == nullptr || text->length() == 0; }

// Puts the line into the header label; a header that is joined with the body is rewritten to end in ": ".
void showTinyLine(BrimContainer* self);
