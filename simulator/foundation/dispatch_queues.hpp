// What dispatch offers beside platform/dispatch.hpp: queues of the caller's own.
#pragma once

#include "platform/dispatch.hpp"

extern "C" {
// A serial queue, which lives as long as the process. The label is for the reader; attributes are not looked at. Any
// thread.
dispatch_queue_t dispatch_queue_create(const char* label, void* attributes);
// The moment that never comes, for dispatch_after.
inline constexpr dispatch_time_t DISPATCH_TIME_FOREVER = ~dispatch_time_t{0};
}
