// Makes +[NSPropertyListSerialization propertyListWithData:options:format:error:] safe for untrusted data.
#pragma once

#include <string_view>

namespace foundation {

// Replaces the method. The new method returns nil for invalid data, as on the phone. GNUstep's own method raises an
// exception for such data, or exhausts memory or the stack. Call this once. Main thread.
void installPropertyListParsing();

// Returns whether the text contains so few brackets that parsing it cannot exhaust the stack. The oldest property list
// format and strings tables use brackets for nested objects.
bool hasAcceptableNesting(std::string_view text);

}  // namespace foundation
