#include "simulator/foundation/serial_queue.hpp"

#include <chrono>
#include <cstdlib>
#include <utility>
#include <vector>

#include "objc/autorelease_pool.hpp"

extern "C" bool GSRegisterCurrentThread();

namespace foundation {

namespace {

// The maximum time to wait for running work when the process exits. Without a limit, the main thread would wait forever
// for work that waits for the main thread.
constexpr std::chrono::seconds maxWaitAtExit(1);

struct Threads {
  std::mutex mutex;
  std::vector<std::function<void()>> stops;
};

Threads& threads() {
  static auto& all = *new Threads;
  return all;
}

void stopThreads() {
  const std::lock_guard lock(threads().mutex);
  for (const std::function<void()>& stop : threads().stops) stop();
}

}  // namespace

void SerialQueue::async(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  waiting_.push_back(std::make_shared<Entry>(Entry{std::move(work)}));
  if (!std::exchange(hasThread_, true)) startThread();
  changed_.notify_all();
}

void SerialQueue::sync(const std::function<void()>& work) {
  Lock lock(mutex_);
  const auto entry = std::make_shared<Entry>();
  waiting_.push_back(entry);
  changed_.wait(lock, [&] { return runner_ == std::thread::id() && waiting_.front() == entry; });
  run(lock, work);
}

bool SerialQueue::isRunningCaller() const {
  const std::lock_guard lock(mutex_);
  return runner_ == std::this_thread::get_id();
}

void SerialQueue::run(Lock& lock, const std::function<void()>& work) {
  waiting_.pop_front();
  runner_ = std::this_thread::get_id();
  lock.unlock();
  {
    const objc::AutoreleasePool pool;
    work();
  }
  lock.lock();
  runner_ = {};
  changed_.notify_all();
}

void SerialQueue::startThread() {
  const std::lock_guard lock(threads().mutex);
  if (threads().stops.empty()) std::atexit(&stopThreads);
  threads().stops.push_back([this] { stop(); });
  std::thread([this] { runThread(); }).detach();
}

void SerialQueue::stop() {
  Lock lock(mutex_);
  isStopping_ = true;
  changed_.wait_for(lock, maxWaitAtExit,
                    [this] { return runner_ == std::thread::id() || runner_ == std::this_thread::get_id(); });
}

void SerialQueue::runThread() {
  GSRegisterCurrentThread();
  Lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [&] {
      return !isStopping_ && runner_ == std::thread::id() && !waiting_.empty() && waiting_.front()->work != nullptr;
    });
    const std::shared_ptr<Entry> next = waiting_.front();
    run(lock, next->work);
  }
}

}  // namespace foundation
