// Solves a subproblem of a model: a connected component of variables and the constraints between them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/lexicographic_simplex.hpp"
#include "simulator/layout/linear_model.hpp"

namespace layout {

// Variables and rows are numbered as in the subproblem's model. All numbers in the model must be finite and all
// variables must exist. Used by one thread at a time.
class Subproblem {
 public:
  // Copies the model. Call `solve` before reading values or conflicts.
  explicit Subproblem(const Model& model);

  // The model with the current constants. Valid until the next change.
  Model model() const { return {variableCount_, rows_, terms_}; }
  void setConstant(std::uint32_t row, double constant);
  // Starts from the last result if possible.
  void solve();

  double value(std::uint32_t variable) const { return simplex_.tableau().value(variable); }
  // The required rows that contradict required rows before them, in ascending order.
  std::span<const std::uint32_t> conflicts() const { return conflicts_; }

  // The number of pivots of all solves, and the size of the tableau.
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
  std::vector<Change> changes_;  // since the last solve
  std::vector<std::uint32_t> conflicts_;
  bool isSolved_ = false;

  LexicographicSimplex simplex_;
  std::size_t pivotCountFromScratch_ = 0;  // the pivot count when the problem was last solved from scratch
  std::vector<std::uint32_t> levels_;      // the rows that are not required, highest priority first
  std::vector<Quantity> goal_;
};

}  // namespace layout
