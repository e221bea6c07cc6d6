#include "simulator/layout/partition.hpp"

#include <algorithm>
#include <numeric>

namespace layout {

void Partition::reset(std::uint32_t variables) {
  earlier_.resize(variables);
  std::iota(earlier_.begin(), earlier_.end(), 0U);
}

// Halves the way on its way, so that it stays short.
std::uint32_t Partition::first(std::uint32_t variable) {
  while (earlier_[variable] != variable) variable = earlier_[variable] = earlier_[earlier_[variable]];
  return variable;
}

void Partition::tie(std::span<const Term> terms) {
  for (std::size_t index = 1; index < terms.size(); ++index) {
    const std::uint32_t one = first(terms[index - 1].variable);
    const std::uint32_t other = first(terms[index].variable);
    earlier_[std::max(one, other)] = std::min(one, other);
  }
}

void Partition::number() {
  places_.resize(earlier_.size());
  sizes_.clear();
  for (std::uint32_t variable = 0; variable < places_.size(); ++variable) {
    const std::uint32_t start = first(variable);
    if (start == variable) {
      places_[variable] = {partCount(), 0};
      sizes_.push_back(1);
    } else {
      const std::uint32_t part = places_[start].part;
      places_[variable] = {part, sizes_[part]++};
    }
  }
}

}  // namespace layout
