// What a stored preference means as a value of a wanted type; nothing where it is of no fitting one.
#pragma once

#include <optional>

#include "platform/ns_object.hpp"

namespace foundation {

// Booleans, the numbers 0 and 1, and the texts YES, NO, true, false, 1 and 0 in any case.
std::optional<bool> booleanPreference(const NSObject* stored);
// Numbers, cut to whole ones, and decimal texts, within the range of the type.
std::optional<NSInteger> integerPreference(const NSObject* stored);

}  // namespace foundation
