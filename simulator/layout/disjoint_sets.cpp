#include "simulator/layout/disjoint_sets.hpp"

#include <algorithm>
#include <numeric>

namespace layout {

void DisjointSets::reset(std::uint32_t variables) {
  parent_.resize(variables);
  std::iota(parent_.begin(), parent_.end(), 0U);
}

// Returns the root of the variable's set. Shortens the path to the root by path halving.
std::uint32_t DisjointSets::find(std::uint32_t variable) {
  while (parent_[variable] != variable) variable = parent_[variable] = parent_[parent_[variable]];
  return variable;
}

void DisjointSets::unite(std::span<const Term> terms) {
  for (std::size_t index = 1; index < terms.size(); ++index) {
    const std::uint32_t one = find(terms[index - 1].variable);
    const std::uint32_t other = find(terms[index].variable);
    parent_[std::max(one, other)] = std::min(one, other);
  }
}

void DisjointSets::number() {
  locations_.resize(parent_.size());
  sizes_.clear();
  for (std::uint32_t variable = 0; variable < locations_.size(); ++variable) {
    const std::uint32_t lowest = find(variable);
    if (lowest == variable) {
      locations_[variable] = {setCount(), 0};
      sizes_.push_back(1);
    } else {
      const std::uint32_t set = locations_[lowest].set;
      locations_[variable] = {set, sizes_[set]++};
    }
  }
}

}  // namespace layout
