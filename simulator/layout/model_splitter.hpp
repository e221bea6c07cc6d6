// Splits a linear model into independent models, one model for each disjoint set of variables.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/disjoint_sets.hpp"
#include "simulator/layout/linear_model.hpp"

namespace layout {

// Splits the constraints in two passes over the same constraints in the same order. The first pass counts them, the
// second pass stores them. Each model has the number of its set. An additional model, the last one, contains the
// constraints without variables.
class ModelSplitter {
 public:
  // The splitter refers to `sets`, which must outlive it.
  explicit ModelSplitter(const DisjointSets& sets);

  // Counts a constraint. Call this in the first pass, once for each constraint.
  void count(std::span<const Term> terms);
  // Allocates memory for the counted constraints. Call this between the passes.
  void allocate();

  struct RowLocation {
    std::uint32_t model;
    std::uint32_t row;
  };
  // Stores a constraint and returns its location. Call this in the second pass, once for each constraint.
  RowLocation append(const Row& row, std::span<const Term> terms);

  // Returns the models. They refer to the memory of the splitter.
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
