// Conversion of stored preferences to the types of settings. The result is empty if a value cannot be converted. Nil is
// such a value.
#pragma once

#include <optional>

#include "platform/ns_object.hpp"

namespace foundation {

// Accepts booleans, the numbers 0 and 1, and the strings YES, NO, true, false, 1 and 0 in any case.
std::optional<bool> booleanPreference(const NSObject* stored);
// Accepts numbers, whose fraction is dropped, and decimal strings, both within the range of NSInteger.
std::optional<NSInteger> integerPreference(const NSObject* stored);

}  // namespace foundation
