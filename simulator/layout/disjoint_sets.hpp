// Disjoint sets (union-find) of variables. Two variables are in the same set if constraints connect them, directly or
// through other variables.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/linear_model.hpp"

namespace layout {

// Sets of variables, which are numbered from 0. Used by one thread at a time.
class DisjointSets {
 public:
  struct Location {
    std::uint32_t set;
    std::uint32_t index;  // the position of the variable among the variables of the set
  };

  // Removes all sets and puts each of `variables` variables into a separate set.
  void reset(std::uint32_t variables);
  // Merges the sets of all variables in the terms.
  void unite(std::span<const Term> terms);
  // Numbers the sets in the order of their first variables, and the variables of each set in ascending order. Call this
  // after the last `unite` and before the functions below.
  void number();

  bool contains(std::uint32_t variable) const { return variable < locations_.size(); }
  std::uint32_t setCount() const { return static_cast<std::uint32_t>(sizes_.size()); }
  std::uint32_t variableCount(std::uint32_t set) const { return sizes_[set]; }
  Location location(std::uint32_t variable) const { return locations_[variable]; }

 private:
  std::uint32_t find(std::uint32_t variable);

  // For each variable: a lower variable of the same set, or the variable itself if it is the lowest one.
  std::vector<std::uint32_t> parent_;
  std::vector<Location> locations_;
  // The number of variables in each set.
  std::vector<std::uint32_t> sizes_;
};

}  // namespace layout
