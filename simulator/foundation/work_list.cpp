#include "simulator/foundation/work_list.hpp"

#include <algorithm>
#include <utility>

namespace foundation {

void WorkList::add(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  ready_.push_back(std::move(work));
}

void WorkList::addAt(Nanoseconds when, std::function<void()> work) {
  if (when == never) return;
  const std::lock_guard lock(mutex_);
  timed_.emplace(when, std::move(work));
}

std::function<void()> WorkList::takeDue(Nanoseconds now) {
  const std::lock_guard lock(mutex_);
  const auto due = timed_.upper_bound(now);
  for (auto entry = timed_.begin(); entry != due; ++entry) ready_.push_back(std::move(entry->second));
  timed_.erase(timed_.begin(), due);
  if (ready_.empty()) return {};
  std::function<void()> next = std::move(ready_.front());
  ready_.pop_front();
  return next;
}

Nanoseconds WorkList::nextTime() const {
  const std::lock_guard lock(mutex_);
  if (!ready_.empty()) return 0;
  return timed_.empty() ? never : timed_.begin()->first;
}

void WorkList::shift(Nanoseconds from, Nanoseconds to) {
  const std::lock_guard lock(mutex_);
  std::multimap<Nanoseconds, std::function<void()>> moved;
  for (auto& [when, work] : timed_)
    moved.emplace(saturatingSum(to, std::max<Nanoseconds>(when - from, 0)), std::move(work));
  timed_ = std::move(moved);
}

}  // namespace foundation
