// Conversion of strings to UTF-16 data.
#pragma once

namespace foundation {

// Replaces -[NSString dataUsingEncoding:] for NSUnicodeStringEncoding. GNUstep's own omits the second surrogate of the
// last character if that character is outside the Basic Multilingual Plane, such as an emoji. Main thread, once.
void installStringEncoding();

}  // namespace foundation
