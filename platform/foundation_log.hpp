// The system log. Any thread.
#pragma once

#include "platform/ns_string.hpp"

// Logs the format, which must not contain "%". Pass no further arguments, because they are passed differently on the
// phone and on Linux.
extern "C" void NSLog(NSString* format, ...);
