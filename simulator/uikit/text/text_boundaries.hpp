// Finds the boundaries of user-perceived characters. A letter with its accents is one such character, and so is an
// emoji of several code points.
#pragma once

#include "platform/ns_string.hpp"

namespace uikit {

// Returns the start of the character that ends at the position. Positions are in UTF-16 code units. Returns 0 at the
// start of the text. A position after the end counts as the end.
NSUInteger startOfCharacterBefore(const NSString* text, NSUInteger position);

}  // namespace uikit
