// Dispatch queues. Any thread can submit work to a queue. dispatch_async and dispatch_after copy the block and release
// the copy after it has run.
#pragma once

#include <cstdint>

#include "objc/block.hpp"

struct dispatch_queue_s;
using dispatch_queue_t = dispatch_queue_s*;
// A time point on the dispatch clock, in nanoseconds; 0 is the current time.
using dispatch_time_t = std::uint64_t;

extern "C" {
extern dispatch_queue_s _dispatch_main_q;
dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t nanoseconds);
void dispatch_async(dispatch_queue_t queue, objc::Block<void()>* work);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, objc::Block<void()>* work);
void dispatch_retain(dispatch_queue_t queue);
// Returns after the work has run. The call deadlocks if the caller already runs on the queue.
void dispatch_sync(dispatch_queue_t queue, objc::Block<void()>* work);
}

// Runs the work on the main thread, in a later iteration of its run loop.
template <class Work>
void onMainQueue(const Work& work) {
  dispatch_async(&_dispatch_main_q, objc::block(work));
}

// Runs the work on the main thread after at least the given number of nanoseconds.
template <class Work>
void onMainQueueAfter(std::int64_t nanoseconds, const Work& work) {
  dispatch_after(dispatch_time(0, nanoseconds), &_dispatch_main_q, objc::block(work));
}

inline constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
