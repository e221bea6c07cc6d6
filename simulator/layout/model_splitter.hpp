// Splits a linear model into independent models, one for each disjoint set of variables.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/disjoint_sets.hpp"
#include "simulator/layout/linear_model.hpp"

namespace layout {

// Works in two passes over the same constraints in the same order: the first counts them, the second stores them. The
// models have the numbers of the sets. Constraints without variables form an additional model, the last one.
class ModelSplitter {
 public:
  // Borrows the sets.
  explicit ModelSplitter(const DisjointSets& sets);

  // First pass, once for each constraint.
  void count(std::span<const Term> terms);
  // Between the passes.
  void allocate();

  struct RowLocation {
    std::uint32_t model;
    std::uint32_t row;
  };
  // Second pass, once for each constraint. Returns where the row was stored.
  RowLocation append(const Row& row, std::span<const Term> terms);

  // The models refer to the memory of the splitter.
  std::vector<Model> models() const;

 private:
  struct Slice {
    std::uint32_t firstRow = 0;
    std::uint32_t rowCount = 0;
    std::uint32_t firstTerm = 0;
    std::uint32_t termCount = 0;
  };

  std::uint32_t modelOf(std::span<const Term> terms) const;

  const DisjointSets& sets_;
  std::vector<Slice> slices_;
  std::vector<Row> rows_;
  std::vector<Term> terms_;
};

}  // namespace layout
