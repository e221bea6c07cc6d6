// Converts stored preferences to the types of settings. The result is empty if a value is nil or cannot be converted.
#pragma once

#include <optional>

#include "platform/ns_object.hpp"

namespace foundation {

// Accepts booleans, the numbers 0 and 1, and the strings YES, NO, true, false, 1 and 0 in any case.
std::optional<bool> booleanPreference(const NSObject* stored);
// Accepts numbers and decimal strings within the range of NSInteger. The fraction of a number is truncated.
std::optional<NSInteger> integerPreference(const NSObject* stored);

}  // namespace foundation
