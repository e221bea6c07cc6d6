#include "simulator/foundation/serial_queue.hpp"

#include <chrono>
#include <cstdlib>
#include <utility>
#include <vector>

#include "objc/autorelease_pool.hpp"

extern "C" bool GSRegisterCurrentThread();

namespace foundation {

namespace {

// Work that itself waits for the main thread must not keep the process.
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
  const std::lock_guard lock(mutex);
  waiting.push_back(std::make_shared<Entry>(Entry{std::move(work)}));
  if (!std::exchange(hasThread, true)) startThread();
  changed.notify_all();
}

void SerialQueue::sync(const std::function<void()>& work) {
  Lock lock(mutex);
  const auto turn = std::make_shared<Entry>();
  waiting.push_back(turn);
  changed.wait(lock, [&] { return runner == std::thread::id() && waiting.front() == turn; });
  run(lock, work);
}

bool SerialQueue::isRunningCaller() const {
  const std::lock_guard lock(mutex);
  return runner == std::this_thread::get_id();
}

void SerialQueue::run(Lock& lock, const std::function<void()>& work) {
  waiting.pop_front();
  runner = std::this_thread::get_id();
  lock.unlock();
  {
    const objc::AutoreleasePool pool;
    work();
  }
  lock.lock();
  runner = {};
  changed.notify_all();
}

void SerialQueue::startThread() {
  const std::lock_guard lock(threads().mutex);
  if (threads().stops.empty()) std::atexit(&stopThreads);
  threads().stops.push_back([this] { stop(); });
  std::thread([this] { runThread(); }).detach();
}

void SerialQueue::stop() {
  Lock lock(mutex);
  isStopping = true;
  changed.wait_for(lock, maxWaitAtExit,
                   [this] { return runner == std::thread::id() || runner == std::this_thread::get_id(); });
}

void SerialQueue::runThread() {
  GSRegisterCurrentThread();
  Lock lock(mutex);
  while (true) {
    changed.wait(lock, [&] {
      return !isStopping && runner == std::thread::id() && !waiting.empty() && waiting.front()->work != nullptr;
    });
    const std::shared_ptr<Entry> next = waiting.front();
    run(lock, next->work);
  }
}

}  // namespace foundation
