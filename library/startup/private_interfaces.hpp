// The private interfaces of the platform that a banner requires. A system version can lack them. Main thread.
#pragma once

#include <cstdint>

#include "platform/ns_string.hpp"

enum class InterfaceKind : std::uint8_t { PlatformClass, InstanceMethod, ClassMethod, InstanceVariable, Symbol };

// Determines when the library checks that the platform has an interface. If a required interface is missing, the
// library stays inactive. An optional interface (None) is checked where it is used.
enum class Requirement : std::uint8_t { None, Start, Banner };

// Returns the description of the first required interface that this process lacks, such as "-[NSData ic_md5]". Returns
// nil if there is none. Requirement::Banner applies to the home screen only; in other processes the result is nil.
NSString* missingInterface(Requirement requirement);
