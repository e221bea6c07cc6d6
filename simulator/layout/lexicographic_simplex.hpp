// A primal simplex method for lexicographic optimization. It minimizes several goals in order. It minimizes each goal
// as far as possible while the previous goals remain at their optimum.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/tableau.hpp"

namespace layout {

// A goal is a set of quantities. Each quantity has a cost per unit below zero and a cost per unit above zero. Each goal
// is first minimized and then fixed at its optimum. A quantity can have any value until a goal contains it. Used by one
// thread at a time.
class LexicographicSimplex {
 public:
  using Quantity = Tableau::Quantity;
  struct Cost {
    double below = 0;
    double above = 0;
  };

  // Makes all quantities free and removes their costs. The caller must then fill the tableau.
  void reset(std::size_t variables, std::size_t constraints);
  // Makes all quantities free again. The basis does not change.
  void release();

  Tableau& tableau() { return tableau_; }
  const Tableau& tableau() const { return tableau_; }
  void setCost(Quantity quantity, Cost cost) { costs_[quantity] = cost; }

  // Makes a basic quantity zero by exchanging it with a nonbasic variable. Returns false if its expression contains no
  // nonbasic variable. Before the call, each fixed goal must have been absorbed or must have no nonbasic variable in
  // its expression.
  bool absorb(Quantity quantity);
  // Minimizes the total cost of the quantities and returns it. Call `keepOptimum`, `keepZero` or `abandon` next.
  double minimize(std::span<const Quantity> goal);
  double cost(std::span<const Quantity> goal) const;
  // Restricts all quantities so that the goal minimized last remains at its optimum. `goal` must be that goal.
  void keepOptimum(std::span<const Quantity> goal);
  // Restricts all quantities so that a goal whose optimum is zero remains zero. Also removes rounding errors.
  void keepZero(std::span<const Quantity> goal);
  // Removes the restriction of the quantity.
  void abandon(Quantity quantity) { allowed_[quantity] = eitherSign; }

  // Returns whether no quantity can change without increasing the cost of a fixed goal.
  bool isDetermined() const;
  // Returns whether all quantities still have a sign that the fixed goals allow. If so, the basis is optimal for all
  // goals.
  bool isFeasible() const;
  // The number of pivots since construction, including those before the last reset.
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
    Signs direction;  // negative, positive, or noSign if the optimum has been reached
  };
  struct Leaving {
    std::size_t row;
    double distance;  // the amount by which the entering quantity changes
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
  // The number of the last goal that contained each quantity.
  std::vector<std::uint32_t> goalOf_;
  std::uint32_t goalNumber_ = 0;
  // The columns of the nonbasic quantities that are not fixed at zero.
  std::vector<std::uint32_t> candidateColumns_;
  // The derivative, for each column, of the cost of the goal's basic quantities.
  std::vector<double> gradient_;
  std::size_t pivotCount_ = 0;
};

}  // namespace layout
