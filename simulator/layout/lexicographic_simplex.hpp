// A primal simplex method for lexicographic optimization: it minimizes several goals in order, and each goal only
// within the optimum of the previous ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/tableau.hpp"

namespace layout {

// A goal is a set of quantities. Each has a cost for every unit that it is below or above zero. Each goal is first
// minimized and then fixed at its optimum. A quantity that no goal has contained yet can have any value. Used by one
// thread at a time.
class LexicographicSimplex {
 public:
  using Quantity = Tableau::Quantity;
  struct Cost {
    double below = 0;
    double above = 0;
  };

  // Starts again with all quantities free and without cost. The caller then fills the tableau.
  void reset(std::size_t variables, std::size_t constraints);
  // Makes all quantities free again, at the current basis.
  void release();

  Tableau& tableau() { return tableau_; }
  const Tableau& tableau() const { return tableau_; }
  void setCost(Quantity quantity, Cost cost) { costs_[quantity] = cost; }

  // Makes a basic quantity zero by exchanging it with a nonbasic variable. Returns false if its expression contains no
  // such variable. Call it only while each fixed goal was absorbed or had no such variable in its expression.
  bool absorb(Quantity quantity);
  // Minimizes and returns the total cost of the quantities. Call `keepOptimum`, `keepZero` or `abandon` next.
  double minimize(std::span<const Quantity> goal);
  double cost(std::span<const Quantity> goal) const;
  // Restricts all quantities so that the goal minimized last remains at its optimum.
  void keepOptimum(std::span<const Quantity> goal);
  // Restricts all quantities so that a goal whose optimum is zero remains zero, and removes rounding errors.
  void keepZero(std::span<const Quantity> goal);
  // Makes the quantity free again.
  void abandon(Quantity quantity) { allowed_[quantity] = eitherSign; }

  // Whether no quantity can change without increasing the cost of a fixed goal.
  bool isDetermined() const;
  // Whether all quantities still have a sign that the fixed goals allow. The basis is then optimal for all goals.
  bool isFeasible() const;
  // The number of pivots since construction. A reset does not clear it.
  std::size_t pivotCount() const { return pivotCount_; }

 private:
  // The set of signs that a quantity can have, as two bits.
  using Signs = std::uint8_t;
  static constexpr Signs noSign = 0;
  static constexpr Signs negative = 1;
  static constexpr Signs positive = 2;
  static constexpr Signs eitherSign = negative | positive;

  struct Entering {
    std::size_t column;
    Signs direction;  // negative or positive, or noSign if the optimum is reached
  };
  struct Leaving {
    std::size_t row;
    double distance;  // the change of the entering quantity
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
  std::vector<std::uint32_t> goalOf_;  // the number of the last goal that contained a quantity
  std::uint32_t goalNumber_ = 0;
  std::vector<std::uint32_t> candidateColumns_;  // of the nonbasic quantities that are not fixed at zero
  std::vector<double> gradient_;                 // the cost of the goal's basic quantities, differentiated by column
  std::size_t pivotCount_ = 0;
};

}  // namespace layout
