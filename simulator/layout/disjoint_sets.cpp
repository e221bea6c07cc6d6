#include "simulator/layout/disjoint_sets.hpp"

#include <algorithm>
#include <numeric>

namespace layout {

void DisjointSets::reset(std::uint32_t variables) {
  parent_.resize(variables);
  std::iota(parent_.begin(), parent_.end(), 0U);
}

// Halves the way on its way, so that it stays short.
std::uint32_t DisjointSets::first(std::uint32_t variable) {
  while (parent_[variable] != variable) variable = parent_[variable] = parent_[parent_[variable]];
  return variable;
}

void DisjointSets::unite(std::span<const Term> terms) {
  for (std::size_t index = 1; index < terms.size(); ++index) {
    const std::uint32_t one = first(terms[index - 1].variable);
    const std::uint32_t other = first(terms[index].variable);
    parent_[std::max(one, other)] = std::min(one, other);
  }
}

void DisjointSets::number() {
  places_.resize(parent_.size());
  sizes_.clear();
  for (std::uint32_t variable = 0; variable < places_.size(); ++variable) {
    const std::uint32_t start = first(variable);
    if (start == variable) {
      places_[variable] = {setCount(), 0};
      sizes_.push_back(1);
    } else {
      const std::uint32_t part = places_[start].part;
      places_[variable] = {part, sizes_[part]++};
    }
  }
}

}  // namespace layout
