// Pending work of the main thread. Work without a time runs in the order in which it was added. Work with a time runs
// when it is due; equal times run in the order in which they were added.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <mutex>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

// A list of pending work. Any thread can add work. Only the main thread removes work.
class WorkList {
 public:
  void add(std::function<void()> work);
  // Adds work with a time. Work for the time `never` is discarded.
  void addAt(Nanoseconds when, std::function<void()> work);

  // Removes and returns the next work that is due. The result is empty if no work is due.
  std::function<void()> takeDue(Nanoseconds now);
  // Returns the time of the next work: zero if it has no time, and `never` if the list is empty.
  Nanoseconds nextTime() const;
  // Converts all deadlines from a clock that shows `from` to a clock that shows `to`.
  void shift(Nanoseconds from, Nanoseconds to);

 private:
  mutable std::mutex mutex_;
  std::deque<std::function<void()>> ready_;
  std::multimap<Nanoseconds, std::function<void()>> timed_;
};

}  // namespace foundation
