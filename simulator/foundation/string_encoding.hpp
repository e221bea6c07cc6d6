// Text as UTF-16 data.
#pragma once

namespace foundation {

// Makes -[NSString dataUsingEncoding:] write the whole text in NSUnicodeStringEncoding: Foundation's own leaves out the
// second half of a character beyond the first plane, such as an emoji, where the text ends with one.
void installStringEncoding();

}  // namespace foundation
