// Dispatch queues. The main queue and serial queues implement them. All deadlines follow the clock of the process.
#include "simulator/foundation/dispatch_queues.hpp"

#include <pthread.h>
#include <unistd.h>

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <limits>
#include <mutex>

#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/serial_queue.hpp"

struct dispatch_queue_s {
  explicit constexpr dispatch_queue_s(foundation::SerialQueue* queue) : serial(queue) {}

  foundation::SerialQueue* serial;  // null for the main queue
};

namespace {

using Work = objc::Block<void()>;

bool isMainThread() { return getpid() == gettid(); }

[[noreturn]] void abortOnDeadlock() {
  std::fputs("dispatch_sync was called from work of the same queue, which is a deadlock\n", stderr);
  std::abort();
}

void runOnMainThreadAndWait(const std::function<void()>& work) {
  std::mutex mutex;
  std::condition_variable changed;
  bool done = false;
  foundation::onMainThread([&] {
    work();
    const std::lock_guard lock(mutex);
    done = true;
    changed.notify_one();
  });
  std::unique_lock lock(mutex);
  changed.wait(lock, [&] { return done; });
}

// Returns a function that retains the block and calls it.
std::function<void()> functionOf(Work* work) {
  return [retained = objc::BlockRef<void()>(work)] { (*retained.get())(); };
}

}  // namespace

extern "C" {

constinit dispatch_queue_s _dispatch_main_q(nullptr);

dispatch_queue_t dispatch_queue_create(const char*, void*) {
  static std::mutex mutex;
  static auto& queues = *new std::deque<dispatch_queue_s>;
  const std::lock_guard lock(mutex);
  return &queues.emplace_back(new foundation::SerialQueue);
}

// dispatch_retain does nothing, because queues are never destroyed.
void dispatch_retain(dispatch_queue_t) {}

dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t nanoseconds) {
  if (when == DISPATCH_TIME_FOREVER) return when;
  // A dispatch time of zero means the current time. Therefore, every other dispatch time is the time of the clock plus
  // one.
  const dispatch_time_t base = when == 0 ? static_cast<dispatch_time_t>(foundation::clock::now()) + 1 : when;
  if (nanoseconds < 0) {
    const dispatch_time_t back = dispatch_time_t{0} - static_cast<dispatch_time_t>(nanoseconds);
    return base > back ? base - back : 1;
  }
  const dispatch_time_t sum = base + static_cast<dispatch_time_t>(nanoseconds);
  return sum > static_cast<dispatch_time_t>(foundation::never) ? DISPATCH_TIME_FOREVER : sum;
}

void dispatch_async(dispatch_queue_t queue, Work* work) {
  if (queue->serial != nullptr) {
    queue->serial->async(functionOf(work));
  } else {
    foundation::onMainThread(functionOf(work));
  }
}

void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, Work* work) {
  if (when == DISPATCH_TIME_FOREVER) return;
  const foundation::Nanoseconds deadline =
      when == 0 ? foundation::clock::now() : static_cast<foundation::Nanoseconds>(when - 1);
  if (queue->serial == nullptr) {
    foundation::onMainThreadAt(deadline, functionOf(work));
  } else {
    foundation::onMainThreadAt(deadline, [serial = queue->serial, run = functionOf(work)] { serial->async(run); });
  }
}

void dispatch_sync(dispatch_queue_t queue, Work* work) {
  const auto run = [work] { (*work)(); };
  if (queue->serial == nullptr) {
    if (isMainThread()) abortOnDeadlock();
    runOnMainThreadAndWait(run);
  } else {
    if (queue->serial->isRunningCaller()) abortOnDeadlock();
    queue->serial->sync(run);
  }
}

}  // extern "C"
