// Stores values by number, and discards the values of the lowest numbers.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <utility>

namespace runner {

// The numbers begin with 1. Storing a number that exceeds the lowest stored number by `max` or more discards the values
// of the lowest numbers.
template <class Value>
class RecentValues {
 public:
  explicit RecentValues(std::size_t max) : max_(max) {}

  // Stores a value. Does nothing if values of higher numbers have replaced the value of this number.
  void store(std::size_t number, Value value) {
    if (number < first_) return;
    if (number - first_ >= values_.size()) values_.resize(number - first_ + 1);
    values_[number - first_] = std::move(value);
    while (values_.size() > max_) {
      values_.pop_front();
      ++first_;
    }
  }

  // Returns the value, or no value if none is stored.
  std::optional<Value> find(std::size_t number) const {
    if (number < first_ || number - first_ >= values_.size()) return std::nullopt;
    return values_[number - first_];
  }

  std::size_t size() const { return values_.size(); }

 private:
  std::size_t max_;
  std::size_t first_ = 1;  // the number of the first value
  std::deque<std::optional<Value>> values_;
};

}  // namespace runner
