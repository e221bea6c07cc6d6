// Methods of emulated classes that only store their arguments: properties, and calls that a test inspects later.
#pragma once

#include <string>

#include "tests/device/emulator/objective_c.hpp"

namespace device {

// The selector determines the behavior. "setX:" stores its argument as the property x. A selector without arguments
// returns the property of its name ("isX" returns x), or zero if it is not set. Any other selector stores its arguments
// under the whole selector. Objects are retained. The encoding determines in which registers the arguments are.
void addRecordedMethod(ObjectiveC& runtime, const std::string& className, const std::string& selector,
                       const std::string& encoding);

// Adds the getter and the setter of a property.
void addProperty(ObjectiveC& runtime, const std::string& className, const std::string& name, const std::string& type);

// Adds a getter that creates its object at the first call and then always returns it.
void addPart(ObjectiveC& runtime, const std::string& className, const std::string& name, const std::string& partClass);

// Returns a stored value, zero if there is none.
std::uint64_t storedValue(ObjectiveC& runtime, Address object, const std::string& property);
double storedNumber(ObjectiveC& runtime, Address object, const std::string& property, std::size_t index = 0);
void storeValues(ObjectiveC& runtime, Address object, const std::string& property, std::vector<std::uint64_t> values);

}  // namespace device
