// Converts Foundation strings to UTF-8, including strings that are not valid UTF-16.
#pragma once

#include <string>

#include "platform/ns_string.hpp"

namespace uikit {

// The part of the text that is inside the range. U+FFFD replaces each unpaired surrogate. Empty for nil.
std::string utf8(const NSString* text, NSRange range);
inline std::string utf8(const NSString* text) { return utf8(text, {0, NSNotFound}); }

// Returns the text, or an autoreleased copy in which U+FFFD replaces each unpaired surrogate, because Foundation loses
// a text with unpaired surrogates when it edits the text. nil for nil.
NSString* wellFormed(NSString* text);

// No view shows more text than this, in UTF-16 code units. Text after this limit is not laid out.
inline constexpr NSUInteger maxVisibleUnits = 40'000;

}  // namespace uikit
