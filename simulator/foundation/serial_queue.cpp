#include "simulator/foundation/serial_queue.hpp"

#include <utility>

#include "objc/autorelease_pool.hpp"

extern "C" bool GSRegisterCurrentThread();

namespace foundation {

void SerialQueue::async(std::function<void()> work) {
  const std::lock_guard lock(mutex);
  waiting.push_back(std::make_shared<Entry>(Entry{std::move(work)}));
  if (!std::exchange(hasThread, true)) std::thread([this] { runThread(); }).detach();
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

void SerialQueue::runThread() {
  GSRegisterCurrentThread();
  Lock lock(mutex);
  while (true) {
    changed.wait(lock,
                 [&] { return runner == std::thread::id() && !waiting.empty() && waiting.front()->work != nullptr; });
    const std::shared_ptr<Entry> next = waiting.front();
    run(lock, next->work);
  }
}

}  // namespace foundation
