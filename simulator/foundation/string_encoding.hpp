// Corrects the conversion of strings to UTF-16 data.
#pragma once

namespace foundation {

// Replaces -[NSString dataUsingEncoding:] for NSUnicodeStringEncoding. If the last character is outside the Basic
// Multilingual Plane, such as an emoji, GNUstep's own method omits the second surrogate of the character. Call this
// once. Main thread.
void installStringEncoding();

}  // namespace foundation
