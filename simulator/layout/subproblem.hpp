// Solves a part of a model: variables that constraints tie together, and these constraints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/lexicographic_simplex.hpp"
#include "simulator/layout/model.hpp"

namespace layout {

/// Variables and rows have the numbers of the part's own model. All rows have finite numbers and known variables.
class Subproblem {
 public:
  /// Copies the model. To be solved before anything is asked.
  explicit Subproblem(const Model& model);

  /// With the constants as they are now. Valid until the next change.
  Model model() const { return {variableCount_, rows_, terms_}; }
  void setConstant(std::uint32_t row, double constant);
  /// Goes on from the last result where it can.
  void solve();

  double value(std::uint32_t variable) const { return simplex_.tableau().value(variable); }
  /// The required rows that contradict those before them, in rising order.
  std::span<const std::uint32_t> conflicts() const { return conflicts_; }

  /// All pivots so far, and the tableau's size.
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
  bool imposeRequiredAtOnce();
  void collectLevels();
  void optimizeLevels();
  void optimizeLevel(std::span<const std::uint32_t> level);
  void settleVariables();

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
  std::size_t pivotsOfNewStart_ = 0;
  std::vector<std::uint32_t> levels_;  // the optional rows, highest priority first
  std::vector<Quantity> goal_;
};

}  // namespace layout
