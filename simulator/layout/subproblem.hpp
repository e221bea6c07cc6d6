// Solves one subproblem of a model: a connected component of variables and constraints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/lexicographic_simplex.hpp"
#include "simulator/layout/linear_model.hpp"

namespace layout {

// A subproblem. Its variables and rows have the same numbers as in its model. All numbers in the model must be finite,
// and all variables in its terms must exist. Used by one thread at a time.
class Subproblem {
 public:
  // Copies the model. Call `solve` before you read values or conflicts.
  explicit Subproblem(const Model& model);

  // The model with the current constants. The model is valid until the next change.
  Model model() const { return {variableCount_, rows_, terms_}; }
  void setConstant(std::uint32_t row, double constant);
  // Solves the subproblem. Starts from the last result if possible.
  void solve();

  double value(std::uint32_t variable) const { return simplex_.tableau().value(variable); }
  // The required rows that contradict earlier required rows, in ascending order of their numbers.
  std::span<const std::uint32_t> conflicts() const { return conflicts_; }

  // The number of pivots in all solves, and the number of cells in the tableau.
  std::size_t pivotCount() const { return simplex_.pivotCount(); }
  std::size_t cellCount() const { return rows_.size() * (variableCount_ + 1); }

 private:
  using Quantity = LexicographicSimplex::Quantity;

  Quantity quantity(std::uint32_t row) const { return variableCount_ + row; }
  void solveFromScratch();
  void loadTableau();
  void imposeRequired();
  bool impose(std::uint32_t row);
  bool solveFromLastBasis();
  bool imposeRequiredTogether();
  void collectLevels();
  void optimizeLevels();
  void optimizeLevel(std::span<const std::uint32_t> level);
  void minimizeVariables();

  struct Change {
    std::uint32_t row;
    double difference;
  };

  std::uint32_t variableCount_;
  std::vector<Row> rows_;
  std::vector<Term> terms_;
  std::vector<Change> changes_;  // the changes since the last solve
  std::vector<std::uint32_t> conflicts_;
  bool isSolved_ = false;

  LexicographicSimplex simplex_;
  // The pivot count after the subproblem was last solved from scratch.
  std::size_t pivotCountFromScratch_ = 0;
  // The rows that are not required, in descending order of priority.
  std::vector<std::uint32_t> levels_;
  std::vector<Quantity> goal_;
};

}  // namespace layout
