// +[NSPropertyListSerialization propertyListWithData:options:format:error:], safe from whatever the data holds.
#pragma once

#include <string_view>

namespace foundation {

// The phone answers nil for what is no property list. GNUstep raises an exception, or goes on until memory or the stack
// are used up.
void installPropertyListParsing();

// Whether what is written with brackets, as the oldest format and tables of strings are, can be read without the stack
// being used up.
bool nestsSensibly(std::string_view text);

}  // namespace foundation
