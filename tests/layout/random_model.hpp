// Randomized constraint models (seeded), and the values that a solver finds for them.
#pragma once

#include <cmath>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "simulator/layout/solver.hpp"

namespace layout_test {

struct RandomConstraint {
  std::vector<layout::Solver::Term> terms;
  double constant;
  layout::Solver::Relation relation;
  float priority;

  double violation(const std::vector<double>& values) const {
    double sum = constant;
    for (const auto& term : terms) sum += term.coefficient * values[term.variable];
    if (relation == layout::Solver::Relation::LessOrEqual) return std::fmax(sum, 0);
    if (relation == layout::Solver::Relation::GreaterOrEqual) return std::fmax(-sum, 0);
    return std::fabs(sum);
  }
};

struct RandomModel {
  std::uint32_t variables;
  std::vector<RandomConstraint> constraints;

  static constexpr double coefficients[] = {1, 1, 1, -1, -1, -1, 2, -2, 0.5, -0.25, 3};
  static constexpr float priorities[] = {1000, 1000, 1000, 999, 750, 500, 250, 50};
  static constexpr layout::Solver::Relation relations[] = {
      layout::Solver::Relation::Equal, layout::Solver::Relation::Equal, layout::Solver::Relation::LessOrEqual,
      layout::Solver::Relation::GreaterOrEqual};

  // Returns a number in [0, limit). The distributions of the standard library are not used because their results differ
  // between implementations.
  static std::uint32_t randomBelow(std::mt19937& random, std::uint32_t limit) {
    return static_cast<std::uint32_t>(random() % limit);
  }

  template <class Value>
  static void shuffle(std::vector<Value>& values, std::mt19937& random) {
    for (auto count = static_cast<std::uint32_t>(values.size()); count > 1; --count)
      std::swap(values[count - 1], values[randomBelow(random, count)]);
  }

  static RandomModel make(std::uint32_t seed, std::uint32_t maxVariables = 14) {
    std::mt19937 random(seed);
    RandomModel model{1 + randomBelow(random, maxVariables), {}};
    const std::uint32_t count = randomBelow(random, 2 * model.variables + 4);
    for (std::uint32_t i = 0; i < count; ++i) model.constraints.push_back(randomConstraint(random, model.variables));
    return model;
  }

  // Combines several models without common variables, and shuffles the variables and the constraints.
  static RandomModel makeDisjoint(std::uint32_t seed) {
    constexpr std::uint32_t maxSubproblemVariables = 5;
    std::mt19937 random(seed);
    RandomModel whole{0, {}};
    const std::uint32_t subproblems = 2 + randomBelow(random, 4);
    for (std::uint32_t subproblem = 0; subproblem < subproblems; ++subproblem) {
      RandomModel model = make(static_cast<std::uint32_t>(random()), maxSubproblemVariables);
      for (RandomConstraint& constraint : model.constraints) {
        for (auto& term : constraint.terms) term.variable += whole.variables;
        whole.constraints.push_back(std::move(constraint));
      }
      whole.variables += model.variables;
    }
    std::vector<std::uint32_t> shuffledVariables(whole.variables);
    std::iota(shuffledVariables.begin(), shuffledVariables.end(), 0U);
    shuffle(shuffledVariables, random);
    for (RandomConstraint& constraint : whole.constraints)
      for (auto& term : constraint.terms) term.variable = shuffledVariables[term.variable];
    shuffle(whole.constraints, random);
    return whole;
  }

  static RandomConstraint randomConstraint(std::mt19937& random, std::uint32_t variables) {
    RandomConstraint constraint;
    const std::uint32_t terms = 1 + randomBelow(random, 4);
    for (std::uint32_t j = 0; j < terms; ++j)
      constraint.terms.push_back(
          {randomBelow(random, variables), coefficients[randomBelow(random, std::size(coefficients))]});
    constraint.constant = randomConstant(random);
    constraint.relation = relations[randomBelow(random, std::size(relations))];
    constraint.priority = priorities[randomBelow(random, std::size(priorities))];
    return constraint;
  }

  // Returns one of a few values, because equal values cause ties and degenerate vertices, which are the hard cases for
  // a solver.
  static double randomConstant(std::mt19937& random) {
    return randomBelow(random, 3) == 0 ? 0 : (static_cast<double>(randomBelow(random, 41)) - 20) / 2;
  }

  void addTo(layout::Solver& solver) const {
    for (std::uint32_t i = 0; i < variables; ++i) solver.addVariable();
    for (const auto& constraint : constraints)
      solver.add(constraint.terms, constraint.constant, constraint.relation, constraint.priority);
  }
};

inline std::vector<double> values(const layout::Solver& solver, std::uint32_t count) {
  std::vector<double> result;
  for (std::uint32_t i = 0; i < count; ++i) result.push_back(solver.value(i));
  return result;
}

}  // namespace layout_test
