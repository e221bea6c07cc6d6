// Dispatch functions that only the simulator uses. platform/dispatch.hpp declares those that the library also uses.
#pragma once

#include "platform/dispatch.hpp"

extern "C" {
// Creates a serial queue. The queue is never destroyed. The label and the attributes are ignored. Any thread.
dispatch_queue_t dispatch_queue_create(const char* label, void* attributes);
// A deadline that is never reached. dispatch_after ignores work with this deadline.
inline constexpr dispatch_time_t DISPATCH_TIME_FOREVER = ~dispatch_time_t{0};
}
