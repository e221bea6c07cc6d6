// Boundaries of user-perceived characters: a letter with its accents or an emoji of several code points is one
// character.
#pragma once

#include "platform/ns_string.hpp"

namespace uikit {

// The start of the character that ends at the position. Positions are in UTF-16 code units. 0 at the start of the text;
// a position after the end counts as the end.
NSUInteger startOfCharacterBefore(const NSString* text, NSUInteger position);

}  // namespace uikit
