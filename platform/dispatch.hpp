// Dispatch queues: work for the main thread, now or later.
#pragma once

#include <cstdint>

#include "objc/block.hpp"

struct dispatch_queue_s;
using dispatch_queue_t = dispatch_queue_s*;
// Nanoseconds of the dispatch clock.
using dispatch_time_t = std::uint64_t;

extern "C" {
extern dispatch_queue_s _dispatch_main_q;
dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t nanoseconds);
void dispatch_async(dispatch_queue_t queue, objc::Block<void()>* work);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, objc::Block<void()>* work);
void dispatch_retain(dispatch_queue_t queue);
void dispatch_sync(dispatch_queue_t queue, objc::Block<void()>* work);
}

// Runs the work in a later turn of the main thread's run loop.
template <class Work>
void onMainQueue(const Work& work) {
  dispatch_async(&_dispatch_main_q, objc::block(work));
}

// The same, not before that many nanoseconds have passed.
template <class Work>
void onMainQueueAfter(std::int64_t nanoseconds, const Work& work) {
  dispatch_after(dispatch_time(0, nanoseconds), &_dispatch_main_q, objc::block(work));
}

inline constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
