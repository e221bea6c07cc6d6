// Work waiting for the main thread: now in order of arrival, or at a time, equal times in order of arrival.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <mutex>

#include "simulator/foundation/nanoseconds.hpp"

namespace foundation {

// Any thread may add; the main thread takes.
class WorkList {
 public:
  void add(std::function<void()> work);
  void addAt(Nanoseconds when, std::function<void()> work);

  // The next work that is due, empty when there is none.
  std::function<void()> takeDue(Nanoseconds now);
  // When the next work is due: zero for work without a time, `never` when nothing waits.
  Nanoseconds nextTime() const;
  // Moves every deadline, when the clock that they were made by is changed for another.
  void shift(Nanoseconds from, Nanoseconds to);

 private:
  mutable std::mutex mutex;
  std::deque<std::function<void()>> ready;
  std::multimap<Nanoseconds, std::function<void()>> timed;
};

}  // namespace foundation
