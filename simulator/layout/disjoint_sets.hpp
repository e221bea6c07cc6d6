// Tells which variables are tied together, directly or through others.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/model.hpp"

namespace layout {

class DisjointSets {
 public:
  struct Place {
    std::uint32_t part;
    std::uint32_t index;  // among the variables of the part
  };

  /// Starts over with each variable on its own.
  void reset(std::uint32_t variables);
  /// Brings the variables of the terms into one part.
  void unite(std::span<const Term> terms);
  /// Numbers the parts by their first variable, and the variables of each in their own order.
  void number();

  bool contains(std::uint32_t variable) const { return variable < places_.size(); }
  std::uint32_t setCount() const { return static_cast<std::uint32_t>(sizes_.size()); }
  std::uint32_t variableCount(std::uint32_t part) const { return sizes_[part]; }
  Place place(std::uint32_t variable) const { return places_[variable]; }

 private:
  std::uint32_t first(std::uint32_t variable);

  std::vector<std::uint32_t> parent_;  // of each variable: one before it in its part, itself if it is the first
  std::vector<Place> places_;
  std::vector<std::uint32_t> sizes_;  // of each part, in variables
};

}  // namespace layout
