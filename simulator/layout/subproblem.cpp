#include "simulator/layout/subproblem.hpp"

#include <algorithm>
#include <cmath>

namespace layout {
namespace {

// The maximum violation of a satisfied required constraint, in points. It is far below one pixel and exceeds the
// rounding errors of the largest constants.
constexpr double tolerance = 1e-6;
// The maximum number of pivots before the problem is solved from scratch. Rounding errors grow with each pivot.
constexpr std::size_t maxPivotsOnLastBasis = 1000;

// Returns the cost of violating a row. The rows are scaled, so the cost converts a violation back to the units of the
// constraint. All costs of a priority are divided by the largest unit of its constraints.
LexicographicSimplex::Cost costOf(const Row& row, int maxExponent) {
  const double unit = row.exponent == maxExponent ? 1 : std::scalbn(1.0, row.exponent - maxExponent);
  return {row.relation == Relation::LessOrEqual ? 0 : unit, row.relation == Relation::GreaterOrEqual ? 0 : unit};
}

}  // namespace

Subproblem::Subproblem(const Model& model)
    : variableCount_(model.variables),
      rows_(model.rows.begin(), model.rows.end()),
      terms_(model.terms.begin(), model.terms.end()) {
  collectLevels();
}

void Subproblem::setConstant(std::uint32_t row, double constant) {
  const double difference = constant - rows_[row].constant;
  if (difference == 0) return;
  changes_.push_back({row, difference});
  rows_[row].constant = constant;
}

void Subproblem::solve() {
  if (isSolved_ && changes_.empty()) return;
  const bool isPrecise = simplex_.pivotCount() - pivotCountFromScratch_ < maxPivotsOnLastBasis;
  // After a conflict, any change can make the ignored constraint satisfiable, so the last basis cannot be used.
  const bool canUseLastBasis = isSolved_ && conflicts_.empty() && isPrecise;
  if (!canUseLastBasis || !solveFromLastBasis()) solveFromScratch();
  changes_.clear();
  isSolved_ = true;
}

void Subproblem::solveFromScratch() {
  loadTableau();
  imposeRequired();
  optimizeLevels();
  minimizeVariables();
  pivotCountFromScratch_ = simplex_.pivotCount();
}

void Subproblem::loadTableau() {
  simplex_.reset(variableCount_, rows_.size());
  Tableau& tableau = simplex_.tableau();
  auto term = terms_.begin();
  for (std::uint32_t row = 0; row < rows_.size(); ++row) {
    const std::size_t position = tableau.position(quantity(row));
    for (const auto end = term + rows_[row].termCount; term != end; ++term)
      tableau.row(position)[term->variable] = term->coefficient;
    tableau.constant(position) = rows_[row].constant;
  }
}

void Subproblem::imposeRequired() {
  conflicts_.clear();
  for (std::uint32_t row = 0; row < rows_.size(); ++row)
    if (rows_[row].isRequired() && !impose(row)) conflicts_.push_back(row);
}

bool Subproblem::impose(std::uint32_t row) {
  const Quantity own = quantity(row);
  const std::span goal(&own, 1);
  simplex_.setCost(own, costOf(rows_[row], rows_[row].exponent));
  const bool holds = simplex_.absorb(own) || simplex_.cost(goal) <= tolerance || simplex_.minimize(goal) <= tolerance;
  if (holds) {
    simplex_.keepZero(goal);
  } else {
    simplex_.abandon(own);
  }
  return holds;
}

bool Subproblem::solveFromLastBasis() {
  for (const Change& change : changes_) simplex_.tableau().shift(quantity(change.row), change.difference);
  if (simplex_.isFeasible()) return true;
  simplex_.release();
  if (!imposeRequiredTogether()) return false;
  optimizeLevels();
  minimizeVariables();
  return true;
}

bool Subproblem::imposeRequiredTogether() {
  goal_.clear();
  for (std::uint32_t row = 0; row < rows_.size(); ++row)
    if (rows_[row].isRequired()) goal_.push_back(quantity(row));
  if (simplex_.minimize(goal_) > tolerance) return false;
  simplex_.keepZero(goal_);
  return true;
}

void Subproblem::collectLevels() {
  for (std::uint32_t row = 0; row < rows_.size(); ++row)
    if (!rows_[row].isRequired()) levels_.push_back(row);
  std::sort(levels_.begin(), levels_.end(), [&](std::uint32_t a, std::uint32_t b) {
    return rows_[a].priority != rows_[b].priority ? rows_[a].priority > rows_[b].priority : a < b;
  });
}

void Subproblem::optimizeLevels() {
  auto begin = levels_.begin();
  while (begin != levels_.end() && !simplex_.isDetermined()) {
    const float priority = rows_[*begin].priority;
    const auto end =
        std::find_if(begin, levels_.end(), [&](std::uint32_t next) { return rows_[next].priority != priority; });
    optimizeLevel({begin, end});
    begin = end;
  }
}

void Subproblem::optimizeLevel(std::span<const std::uint32_t> level) {
  int maxExponent = rows_[level.front()].exponent;
  for (const std::uint32_t row : level) maxExponent = std::max(maxExponent, rows_[row].exponent);
  goal_.clear();
  for (const std::uint32_t row : level) {
    simplex_.setCost(quantity(row), costOf(rows_[row], maxExponent));
    goal_.push_back(quantity(row));
  }
  simplex_.minimize(goal_);
  simplex_.keepOptimum(goal_);
}

void Subproblem::minimizeVariables() {
  for (Quantity variable = 0; variable < variableCount_ && !simplex_.isDetermined(); ++variable) {
    const std::span goal(&variable, 1);
    simplex_.setCost(variable, {1, 1});
    simplex_.minimize(goal);
    simplex_.keepOptimum(goal);
  }
}

}  // namespace layout
