// A serial queue. It runs one piece of work at a time, in the order in which the work was added. The work runs on the
// queue's own thread or on the thread of a caller that waits for it.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace foundation {

// A queue is never destroyed. Its thread starts with the first `async`. When the process exits, running work can
// finish, but no further work starts, because the work could use static objects that are being destroyed. Any thread.
class SerialQueue {
 public:
  void async(std::function<void()> work);
  // Runs the work on the caller's thread, after all work that was added earlier.
  void sync(const std::function<void()>& work);
  // Returns whether the caller runs in work of this queue. If that work called `sync`, a deadlock would result.
  bool isRunningCaller() const;

 private:
  using Lock = std::unique_lock<std::mutex>;

  // A piece of work. An entry without work represents a caller that waits in `sync`.
  struct Entry {
    std::function<void()> work;
  };

  void run(Lock& lock, const std::function<void()>& work);
  void startThread();
  void runThread();
  void stop();

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::shared_ptr<Entry>> waiting_;
  std::thread::id runner_;
  bool hasThread_ = false;
  bool isStopping_ = false;
};

}  // namespace foundation
