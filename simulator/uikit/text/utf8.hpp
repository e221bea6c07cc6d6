// Converts Foundation strings to UTF-8, including strings that are not valid UTF-16.
#pragma once

#include <string>

#include "platform/ns_string.hpp"

namespace uikit {

// Converts the part of the text that is inside the range. U+FFFD replaces each unpaired surrogate. Returns an empty
// string for nil.
std::string utf8(const NSString* text, NSRange range);
inline std::string utf8(const NSString* text) { return utf8(text, {0, NSNotFound}); }

// Returns the text. If it contains unpaired surrogates, returns an autoreleased copy in which U+FFFD replaces each of
// them, because Foundation loses a text with unpaired surrogates when it edits the text. Returns nil for nil.
NSString* wellFormed(NSString* text);

// The maximum number of UTF-16 code units that a view shows. Text after this limit is not laid out.
inline constexpr NSUInteger maxVisibleUnits = 40'000;

}  // namespace uikit
