// Disjoint sets (union-find) of variables. Two variables are in the same set if constraints connect them, directly or
// through other variables.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/linear_model.hpp"

namespace layout {

// Used by one thread at a time.
class DisjointSets {
 public:
  struct Location {
    std::uint32_t set;
    std::uint32_t index;  // among the variables of the set
  };

  // Starts again, with each variable in a separate set.
  void reset(std::uint32_t variables);
  // Merges the sets of all variables in the terms.
  void unite(std::span<const Term> terms);
  // Numbers the sets by their first variable, and the variables of each set in ascending order. Call it after the last
  // `unite` and before the functions below.
  void number();

  bool contains(std::uint32_t variable) const { return variable < locations_.size(); }
  std::uint32_t setCount() const { return static_cast<std::uint32_t>(sizes_.size()); }
  std::uint32_t variableCount(std::uint32_t set) const { return sizes_[set]; }
  Location location(std::uint32_t variable) const { return locations_[variable]; }

 private:
  std::uint32_t find(std::uint32_t variable);

  std::vector<std::uint32_t> parent_;  // of each variable: a lower variable of its set, or itself if it is the lowest
  std::vector<Location> locations_;
  std::vector<std::uint32_t> sizes_;  // the number of variables in each set
};

}  // namespace layout
