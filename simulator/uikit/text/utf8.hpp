// A Foundation string's text as UTF-8, whatever is in it.
#pragma once

#include <string>

#include "platform/ns_string.hpp"

namespace uikit {

// The range's part that lies in the text; half of a surrogate pair becomes U+FFFD. Empty for nil.
std::string utf8(const NSString* text, NSRange range);
inline std::string utf8(const NSString* text) { return utf8(text, {0, NSNotFound}); }

// The text itself, or a copy with U+FFFD for halves of surrogate pairs where there are any: Foundation loses a text
// with such when it changes it. nil for nil.
NSString* wellFormed(NSString* text);

// More text than any view shows, in UTF-16 units: what lies beyond need not be looked at.
inline constexpr NSUInteger maxVisibleUnits = 40'000;

}  // namespace uikit
