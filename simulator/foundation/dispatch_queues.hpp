// The dispatch functions that the library does not use and platform/dispatch.hpp therefore does not declare.
#pragma once

#include "platform/dispatch.hpp"

extern "C" {
// Creates a serial queue, which is never destroyed. The label and the attributes are ignored. Any thread.
dispatch_queue_t dispatch_queue_create(const char* label, void* attributes);
// A deadline that is never reached, for dispatch_after.
inline constexpr dispatch_time_t DISPATCH_TIME_FOREVER = ~dispatch_time_t{0};
}
