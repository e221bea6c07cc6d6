// Conversions between C++ strings, JSON values and Foundation objects. Any thread.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"

namespace base {

// Converts UTF-8 text. The result is autoreleased. It is nil if the text is not valid UTF-8.
NSString* stringOf(std::string_view text);
// Converts a string to UTF-8. Nil becomes an empty string.
std::string textOf(NSString* string);

// Converts a JSON string, number, boolean, array or object. A JSON null becomes NSNull. The result is autoreleased.
NSObject* objectOf(const nlohmann::ordered_json& value);
// Converts an object of a type that objectOf returns. Nil and NSNull become null, and a date becomes ISO 8601 text. An
// object of any other class becomes its description. The members of a dictionary are sorted by key, because equal
// dictionaries must produce equal text.
nlohmann::ordered_json jsonOf(const NSObject* object);

}  // namespace base
