// Methods of stand-ins that only keep what they are given, and give it back: properties, and calls to look at later.
#pragma once

#include <string>

#include "tests/device/emulator/objective_c.hpp"

namespace device {

// By the selector's form: "setX:" keeps its argument as the property x, a message without arguments gives the property
// of its name ("isX" that of x) or a zero, any other keeps its arguments under the whole selector. Objects are held.
// The encoding says which registers count.
void addRecordedMethod(ObjectiveC& runtime, const std::string& className, const std::string& selector,
                       const std::string& encoding);

// Both methods of a property of that type.
void addProperty(ObjectiveC& runtime, const std::string& className, const std::string& name, const std::string& type);

// A getter of an object that is made at the first call and kept.
void addPart(ObjectiveC& runtime, const std::string& className, const std::string& name, const std::string& partClass);

// What is kept; zero where nothing is.
std::uint64_t kept(ObjectiveC& runtime, Address object, const std::string& property);
double keptNumber(ObjectiveC& runtime, Address object, const std::string& property, std::size_t index = 0);
void keep(ObjectiveC& runtime, Address object, const std::string& property, std::vector<std::uint64_t> values);

}  // namespace device
