#include "simulator/foundation/work_list.hpp"

#include <algorithm>
#include <utility>

namespace foundation {

void WorkList::add(std::function<void()> work) {
  const std::lock_guard lock(mutex);
  ready.push_back(std::move(work));
}

void WorkList::addAt(Nanoseconds when, std::function<void()> work) {
  if (when == never) return;
  const std::lock_guard lock(mutex);
  timed.emplace(when, std::move(work));
}

std::function<void()> WorkList::takeDue(Nanoseconds now) {
  const std::lock_guard lock(mutex);
  const auto due = timed.upper_bound(now);
  for (auto entry = timed.begin(); entry != due; ++entry) ready.push_back(std::move(entry->second));
  timed.erase(timed.begin(), due);
  if (ready.empty()) return {};
  std::function<void()> next = std::move(ready.front());
  ready.pop_front();
  return next;
}

Nanoseconds WorkList::nextTime() const {
  const std::lock_guard lock(mutex);
  if (!ready.empty()) return 0;
  return timed.empty() ? never : timed.begin()->first;
}

void WorkList::shift(Nanoseconds from, Nanoseconds to) {
  const std::lock_guard lock(mutex);
  std::multimap<Nanoseconds, std::function<void()>> moved;
  for (auto& [when, work] : timed) moved.emplace(later(to, std::max<Nanoseconds>(when - from, 0)), std::move(work));
  timed = std::move(moved);
}

}  // namespace foundation
