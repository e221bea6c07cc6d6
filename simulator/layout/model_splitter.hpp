// Sorts the constraints of a model into the models of its parts.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/disjoint_sets.hpp"
#include "simulator/layout/model.hpp"

namespace layout {

/// All constraints are counted first, which gives each part its room, and then put into it in the same order. Those
/// without variables make up one more part, the last.
class ModelSplitter {
 public:
  /// Borrows the partition.
  explicit ModelSplitter(const DisjointSets& partition);

  void count(std::span<const Term> terms);
  void allocate();
  /// Gives the part and the number of the row in it.
  DisjointSets::Place append(const Row& row, std::span<const Term> terms);
  /// Valid as long as this is.
  std::vector<Model> models() const;

 private:
  struct Slice {
    std::uint32_t firstRow = 0;
    std::uint32_t rowCount = 0;
    std::uint32_t firstTerm = 0;
    std::uint32_t termCount = 0;
  };

  std::uint32_t setOf(std::span<const Term> terms) const;

  const DisjointSets& sets_;
  std::vector<Slice> slices_;
  std::vector<Row> rows_;
  std::vector<Term> terms_;
};

}  // namespace layout
