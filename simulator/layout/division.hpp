// Sorts the constraints of a model into the models of its parts.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/model.hpp"
#include "simulator/layout/partition.hpp"

namespace layout {

/// All constraints are counted first, which gives each part its room, and then put into it in the same order. Those
/// without variables make up one more part, the last.
class Division {
 public:
  /// Borrows the partition.
  explicit Division(const Partition& partition);

  void count(std::span<const Term> terms);
  void makeRoom();
  /// Gives the part and the number of the row in it.
  Partition::Place put(const Row& row, std::span<const Term> terms);
  /// Valid as long as this is.
  std::vector<Model> models() const;

 private:
  struct Slice {
    std::uint32_t firstRow = 0;
    std::uint32_t rowCount = 0;
    std::uint32_t firstTerm = 0;
    std::uint32_t termCount = 0;
  };

  std::uint32_t partOf(std::span<const Term> terms) const;

  const Partition& partition_;
  std::vector<Slice> slices_;
  std::vector<Row> rows_;
  std::vector<Term> terms_;
};

}  // namespace layout
