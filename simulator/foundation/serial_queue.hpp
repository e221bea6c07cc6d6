// A serial queue: one piece of work at a time, in order of arrival, on a thread of its own or on a waiting caller's.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace foundation {

// Lives as long as the process; has no thread before the first `async`. A process that ends lets the work that its
// threads are running come to its end, and begins no more of it: what they use is being taken down. Any thread.
class SerialQueue {
 public:
  void async(std::function<void()> work);
  // Runs the work on the caller's thread, after what came before.
  void sync(const std::function<void()>& work);
  // Whether the caller is work of this queue, and a `sync` would wait for itself.
  bool isRunningCaller() const;

 private:
  using Lock = std::unique_lock<std::mutex>;

  // A caller's turn in `sync` is an entry without work.
  struct Entry {
    std::function<void()> work;
  };

  void run(Lock& lock, const std::function<void()>& work);
  void startThread();
  void runThread();
  void stop();

  mutable std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::shared_ptr<Entry>> waiting;
  std::thread::id runner;
  bool hasThread = false;
  bool isStopping = false;
};

}  // namespace foundation
