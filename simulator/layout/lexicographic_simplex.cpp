#include "simulator/layout/lexicographic_simplex.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace layout {
namespace {

constexpr double minPivot = 1e-9;
constexpr double minSlope = 1e-9;
constexpr double zeroTolerance = 1e-9;
constexpr double tieTolerance = 1e-12;
// The maximum number of consecutive degenerate pivots. After that, the search uses Bland's rule, which cannot cycle.
constexpr int maxDegeneratePivots = 16;

}  // namespace

void LexicographicSimplex::reset(std::size_t variables, std::size_t constraints) {
  tableau_.reset(variables, constraints);
  costs_.assign(variables + constraints, {});
  gradient_.assign(variables, 0);
  release();
}

void LexicographicSimplex::release() {
  allowed_.assign(costs_.size(), eitherSign);
  goalOf_.assign(costs_.size(), 0);
  goalNumber_ = 0;
}

bool LexicographicSimplex::absorb(Quantity quantity) {
  if (!tableau_.isBasic(quantity)) return true;
  const std::size_t row = tableau_.position(quantity);
  const double* coefficients = tableau_.row(row);
  std::size_t best = 0;
  double largest = minPivot;
  for (std::size_t column = 0; column < tableau_.columns(); ++column) {
    const double size = std::abs(coefficients[column]);
    if (size <= largest || !tableau_.isVariable(tableau_.nonbasic(column))) continue;
    best = column;
    largest = size;
  }
  if (largest == minPivot) return false;
  tableau_.pivot(row, best);
  ++pivotCount_;
  return true;
}

double LexicographicSimplex::minimize(std::span<const Quantity> goal) {
  beginGoal(goal);
  // No model needs nearly as many pivots. The limit ends the search if rounding errors cause even Bland's rule to
  // cycle.
  const std::size_t maxPivotCount = pivotCount_ + 50 * (tableau_.rows() + tableau_.columns()) + 1000;
  int degeneratePivots = 0;
  while (pivotCount_ < maxPivotCount) {
    const Rule rule = degeneratePivots > maxDegeneratePivots ? Rule::Bland : Rule::SteepestDescent;
    computeGradient(goal);
    const Entering entering = chooseEntering(rule);
    if (entering.direction == noSign) break;
    const Leaving leaving = chooseLeaving(entering, rule);
    // No row limits the entering quantity, so the cost would have no lower bound. Every cost has one, so the slope was
    // a rounding error.
    if (leaving.row == tableau_.rows()) break;
    degeneratePivots = leaving.distance > tieTolerance ? 0 : degeneratePivots + 1;
    pivot(leaving, entering);
  }
  return cost(goal);
}

void LexicographicSimplex::beginGoal(std::span<const Quantity> goal) {
  ++goalNumber_;
  for (const Quantity quantity : goal) {
    goalOf_[quantity] = goalNumber_;
    if (!tableau_.isBasic(quantity)) continue;
    const double value = tableau_.value(quantity);
    const bool isNegative = std::abs(value) > zeroTolerance ? value < 0 : costs_[quantity].below == 0;
    allowed_[quantity] = isNegative ? negative : positive;
  }
  candidateColumns_.clear();
  for (std::uint32_t column = 0; column < tableau_.columns(); ++column) {
    if (allowed_[tableau_.nonbasic(column)] != noSign) candidateColumns_.push_back(column);
  }
}

void LexicographicSimplex::computeGradient(std::span<const Quantity> goal) {
  for (const std::uint32_t column : candidateColumns_) gradient_[column] = 0;
  for (const Quantity quantity : goal) {
    if (!tableau_.isBasic(quantity)) continue;
    const double slope = allowed_[quantity] == negative ? -costs_[quantity].below : costs_[quantity].above;
    if (slope == 0) continue;
    const double* coefficients = tableau_.row(tableau_.position(quantity));
    for (const std::uint32_t column : candidateColumns_) gradient_[column] += slope * coefficients[column];
  }
}

LexicographicSimplex::Entering LexicographicSimplex::chooseEntering(Rule rule) const {
  Entering best{0, noSign};
  double steepest = -minSlope;
  const auto consider = [&](std::uint32_t column, Signs direction, double slope) {
    if (!(slope < -minSlope)) return;  // this form of the condition also rejects NaN
    const bool better = rule == Rule::SteepestDescent
                            ? slope < steepest
                            : best.direction == noSign || tableau_.nonbasic(column) < tableau_.nonbasic(best.column);
    if (!better) return;
    best = {column, direction};
    steepest = slope;
  };
  for (const std::uint32_t column : candidateColumns_) {
    const Quantity quantity = tableau_.nonbasic(column);
    const Cost own = goalCost(quantity);
    if ((allowed_[quantity] & positive) != 0) consider(column, positive, own.above + gradient_[column]);
    if ((allowed_[quantity] & negative) != 0) consider(column, negative, own.below - gradient_[column]);
  }
  return best;
}

LexicographicSimplex::Leaving LexicographicSimplex::chooseLeaving(Entering entering, Rule rule) const {
  Leaving best{tableau_.rows(), std::numeric_limits<double>::infinity()};
  double pivotSize = 0;
  for (std::size_t row = 0; row < tableau_.rows(); ++row) {
    const double coefficient = tableau_.row(row)[entering.column];
    const double size = std::abs(coefficient);
    if (size <= minPivot) continue;
    const Signs direction = (coefficient < 0) == (entering.direction == negative) ? positive : negative;
    if ((allowed_[tableau_.basic(row)] & direction) != 0) continue;
    const double slack = direction == negative ? tableau_.constant(row) : -tableau_.constant(row);
    const double distance = std::max(slack, 0.0) / size;
    if (distance > best.distance + tieTolerance) continue;
    if (distance >= best.distance - tieTolerance) {
      const bool preferred = rule == Rule::Bland ? tableau_.basic(row) < tableau_.basic(best.row) : size > pivotSize;
      if (!preferred) continue;
    }
    best = {row, distance};
    pivotSize = size;
  }
  return best;
}

void LexicographicSimplex::pivot(Leaving leaving, Entering entering) {
  const Quantity in = tableau_.nonbasic(entering.column);
  const Quantity out = tableau_.basic(leaving.row);
  if (goalOf_[in] == goalNumber_) allowed_[in] = entering.direction;
  if (goalOf_[out] == goalNumber_) allowed_[out] = eitherSign;
  tableau_.pivot(leaving.row, entering.column);
  ++pivotCount_;
}

double LexicographicSimplex::costOf(Quantity quantity) const {
  const double value = tableau_.value(quantity);
  return value < 0 ? -value * costs_[quantity].below : value * costs_[quantity].above;
}

double LexicographicSimplex::cost(std::span<const Quantity> goal) const {
  double sum = 0;
  for (const Quantity quantity : goal) sum += costOf(quantity);
  return sum;
}

void LexicographicSimplex::keepOptimum(std::span<const Quantity> goal) {
  // The basic quantities of the goal are already restricted to their signs. Each nonbasic quantity is now prevented
  // from changing in any direction that would increase the cost.
  computeGradient(goal);
  for (const std::uint32_t column : candidateColumns_) {
    const Quantity quantity = tableau_.nonbasic(column);
    const Cost own = goalCost(quantity);
    if (own.above + gradient_[column] > minSlope) allowed_[quantity] &= negative;
    if (own.below - gradient_[column] > minSlope) allowed_[quantity] &= positive;
  }
}

void LexicographicSimplex::keepZero(std::span<const Quantity> goal) {
  for (const Quantity quantity : goal) {
    const Cost cost = costs_[quantity];
    allowed_[quantity] = (cost.below > 0 ? noSign : negative) | (cost.above > 0 ? noSign : positive);
    if (tableau_.isBasic(quantity) && costOf(quantity) > 0) tableau_.constant(tableau_.position(quantity)) = 0;
  }
}

bool LexicographicSimplex::isDetermined() const {
  for (std::size_t column = 0; column < tableau_.columns(); ++column) {
    if (allowed_[tableau_.nonbasic(column)] != noSign) return false;
  }
  return true;
}

bool LexicographicSimplex::isFeasible() const {
  for (std::size_t row = 0; row < tableau_.rows(); ++row) {
    const Signs allowed = allowed_[tableau_.basic(row)];
    const double value = tableau_.constant(row);
    if (value < -zeroTolerance && (allowed & negative) == 0) return false;
    if (value > zeroTolerance && (allowed & positive) == 0) return false;
  }
  return true;
}

}  // namespace layout
