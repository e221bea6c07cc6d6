// Makes +[NSPropertyListSerialization propertyListWithData:options:format:error:] safe for untrusted data.
#pragma once

#include <string_view>

namespace foundation {

// Replaces the method. It returns nil for invalid data, as on the phone; GNUstep's own raises an exception or exhausts
// memory or the stack. Main thread, once.
void installPropertyListParsing();

// Whether text in the bracket notation, which the oldest format and tables of strings use, has few enough brackets to
// be parsed without exhausting the stack.
bool hasAcceptableNesting(std::string_view text);

}  // namespace foundation
