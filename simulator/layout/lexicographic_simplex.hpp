// A primal simplex that serves one goal after another, each within the optimum of those before it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/tableau.hpp"

namespace layout {

/// A goal is a set of quantities, each with a cost for every unit it is below and above zero. A goal is first minimized
/// and then kept; what has not been a goal yet moves freely.
class LexicographicSimplex {
 public:
  using Quantity = Tableau::Quantity;
  struct Cost {
    double below = 0;
    double above = 0;
  };

  /// Starts over with all quantities free and without cost, and a tableau to be filled.
  void reset(std::size_t variables, std::size_t constraints);
  /// Makes all quantities free again and stays at the present basis.
  void release();

  Tableau& tableau() { return tableau_; }
  const Tableau& tableau() const { return tableau_; }
  void setCost(Quantity quantity, Cost cost) { costs_[quantity] = cost; }

  /// Brings a quantity to zero by means of a variable that nothing determines yet; false if there is none. Valid while
  /// every goal kept so far was absorbed, or had no such variable in its expression.
  bool absorb(Quantity quantity);
  /// Finds the least total cost of the quantities. To be followed by `keepOptimum`, `keepZero` or `abandon`.
  double minimize(std::span<const Quantity> goal);
  double cost(std::span<const Quantity> goal) const;
  /// Confines everything to where the goal just minimized stays at its optimum.
  void keepOptimum(std::span<const Quantity> goal);
  /// The same for a goal whose cost is zero but for rounding.
  void keepZero(std::span<const Quantity> goal);
  void abandon(Quantity quantity) { allowed_[quantity] = eitherSign; }

  /// True when no quantity can move any more without giving up a goal that is kept.
  bool isDetermined() const;
  /// True when all quantities are still where the goals allow them; then the basis is still optimal for all goals.
  bool isFeasible() const;
  /// All there were, before the last reset too.
  std::size_t pivotCount() const { return pivotCount_; }

 private:
  // The signs a quantity may have, as a set of two bits.
  using Signs = std::uint8_t;
  static constexpr Signs noSign = 0;
  static constexpr Signs negative = 1;
  static constexpr Signs positive = 2;
  static constexpr Signs eitherSign = negative | positive;

  struct Entering {
    std::size_t column;
    Signs direction;  // negative or positive, or noSign when the optimum is reached
  };
  struct Leaving {
    std::size_t row;
    double distance;  // how far the entering quantity moves
  };
  enum class Rule { SteepestDescent, Bland };

  double costOf(Quantity quantity) const;
  Cost goalCost(Quantity quantity) const { return goalOf_[quantity] == goalNumber_ ? costs_[quantity] : Cost{}; }
  void beginGoal(std::span<const Quantity> goal);
  void computeGradient(std::span<const Quantity> goal);
  Entering chooseEntering(Rule rule) const;
  Leaving chooseLeaving(Entering entering, Rule rule) const;
  void pivot(Leaving leaving, Entering entering);

  Tableau tableau_;
  std::vector<Cost> costs_;
  std::vector<Signs> allowed_;
  std::vector<std::uint32_t> goalOf_;  // the number of the goal a quantity was in last
  std::uint32_t goalNumber_ = 0;
  std::vector<std::uint32_t> openColumns_;
  std::vector<double> gradient_;  // of the goal's basic quantities, by column
  std::size_t pivotCount_ = 0;
};

}  // namespace layout
