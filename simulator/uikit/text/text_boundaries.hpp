// Where the characters that a reader sees begin: a letter with its accents or an emoji of several parts is one.
#pragma once

#include "platform/ns_string.hpp"

namespace uikit {

// Of the character that ends at the position, in UTF-16 units; 0 at the text's start.
NSUInteger startOfCharacterBefore(const NSString* text, NSUInteger position);

}  // namespace uikit
