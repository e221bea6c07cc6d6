// Foundation's objects from JSON values and back.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"

namespace base {

// Autoreleased; nil for what is not UTF-8.
NSString* stringOf(std::string_view text);
// In UTF-8; empty for nil.
std::string textOf(NSString* string);

// Strings, numbers, booleans, arrays and dictionaries; null becomes NSNull. Autoreleased.
NSObject* objectOf(const nlohmann::ordered_json& value);
// Null for nil and NSNull; dates in ISO 8601; the description of what has no form in JSON. The members of dictionaries
// are in their keys' order, so that the same dictionary always reads the same.
nlohmann::ordered_json jsonOf(const NSObject* object);

}  // namespace base
