// Compares the solver with an independent linear programming library.
#include <gtest/gtest.h>

#include <ClpSimplex.hpp>
#include <cmath>
#include <functional>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "simulator/layout/solver.hpp"
#include "tests/layout/random_model.hpp"

namespace {

using layout::Solver;
using layout_test::RandomConstraint;
using layout_test::RandomModel;

// The tolerance for a difference between the solver and the oracle. It is large because the slack of the oracle's
// linear programs adds up.
double tolerance(double expected) { return 1e-4 * std::fmax(1, std::fabs(expected)); }

// Computes the expected result with a sequence of linear programs. Each program has an additional row that requires the
// optimum of the previous program. All columns are non-negative: a variable is the difference of a pair of columns, and
// the violation of a constraint is the sum of a pair.
class Oracle {
 public:
  explicit Oracle(const RandomModel& model) : model_(model) {
    program_.setLogLevel(0);
    program_.scaling(0);
    program_.setPrimalTolerance(1e-9);
    program_.setDualTolerance(1e-9);
    for (std::uint32_t i = 0; i < model.variables; ++i) addPair();
    for (const auto& constraint : model.constraints) addConstraint(constraint);
    applyRequiredConstraints();
    for (const auto& [priority, constraints] : priorityLevels()) costs_[priority] = minimizeLevel(constraints);
    for (std::uint32_t i = 0; i < model.variables; ++i) minimizeMagnitude(i);
  }

  const std::vector<Solver::Constraint>& conflicts() const { return conflicts_; }
  const std::vector<double>& values() const { return values_; }
  const std::map<float, double, std::greater<>>& costs() const { return costs_; }

 private:
  using Levels = std::map<float, std::vector<int>, std::greater<>>;
  // The deviation from an optimum that the additional rows allow. It must be above the tolerances of the linear
  // program; otherwise, rounding would make a later program infeasible.
  static constexpr double slack = 1e-7;

  int positiveColumn(int pair) const { return 2 * pair; }
  int negativeColumn(int pair) const { return 2 * pair + 1; }
  int violationPair(std::size_t constraint) const { return static_cast<int>(model_.variables + constraint); }

  void addPair() {
    for (int i = 0; i < 2; ++i) program_.addColumn(0, nullptr, nullptr, 0, COIN_DBL_MAX, 0);
  }

  void addConstraint(const RandomConstraint& constraint) {
    const int pair = program_.numberColumns() / 2;
    addPair();
    std::map<int, double> row;
    for (const auto& term : constraint.terms) {
      row[positiveColumn(static_cast<int>(term.variable))] += term.coefficient;
      row[negativeColumn(static_cast<int>(term.variable))] -= term.coefficient;
    }
    row[positiveColumn(pair)] = -1;
    row[negativeColumn(pair)] = 1;
    addRow(row, -constraint.constant, -constraint.constant);
  }

  void addRow(const std::map<int, double>& row, double lower, double upper) {
    std::vector<int> columns;
    std::vector<double> coefficients;
    for (const auto& [column, coefficient] : row) {
      columns.push_back(column);
      coefficients.push_back(coefficient);
    }
    program_.addRow(static_cast<int>(columns.size()), columns.data(), coefficients.data(), lower, upper);
  }

  // The columns whose sum is the violation of the constraint.
  std::vector<int> violationColumns(std::size_t constraint) const {
    const int pair = violationPair(constraint);
    switch (model_.constraints[constraint].relation) {
      case Solver::Relation::LessOrEqual:
        return {positiveColumn(pair)};
      case Solver::Relation::GreaterOrEqual:
        return {negativeColumn(pair)};
      case Solver::Relation::Equal:
        break;
    }
    return {positiveColumn(pair), negativeColumn(pair)};
  }

  double minimize(const std::vector<int>& columns) {
    for (int i = 0; i < program_.numberColumns(); ++i) program_.setObjectiveCoefficient(i, 0);
    for (const int column : columns) program_.setObjectiveCoefficient(column, 1);
    program_.primal();
    if (program_.status() != 0) ADD_FAILURE() << "the linear program failed with status " << program_.status();
    return program_.objectiveValue();
  }

  void applyRequiredConstraints() {
    for (std::size_t i = 0; i < model_.constraints.size(); ++i) {
      if (model_.constraints[i].priority < Solver::required) continue;
      const auto columns = violationColumns(i);
      if (minimize(columns) > 1e-6) {
        conflicts_.push_back(static_cast<Solver::Constraint>(i));
      } else {
        for (const int column : columns) program_.setColumnUpper(column, 0);
      }
    }
  }

  Levels priorityLevels() const {
    Levels result;
    for (std::size_t i = 0; i < model_.constraints.size(); ++i) {
      const float priority = model_.constraints[i].priority;
      if (priority >= Solver::required) continue;
      for (const int column : violationColumns(i)) result[priority].push_back(column);
    }
    return result;
  }

  double minimizeLevel(const std::vector<int>& columns) {
    const double optimum = minimize(columns);
    std::map<int, double> row;
    for (const int column : columns) row[column] = 1;
    addRow(row, -COIN_DBL_MAX, optimum + slack);
    return optimum;
  }

  void minimizeMagnitude(std::uint32_t variable) {
    const int pair = static_cast<int>(variable);
    minimize({positiveColumn(pair), negativeColumn(pair)});
    const double* solution = program_.primalColumnSolution();
    const double value = solution[positiveColumn(pair)] - solution[negativeColumn(pair)];
    values_.push_back(value);
    addRow({{positiveColumn(pair), 1}, {negativeColumn(pair), -1}}, value - slack, value + slack);
  }

  const RandomModel& model_;
  ClpSimplex program_;
  std::vector<Solver::Constraint> conflicts_;
  std::map<float, double, std::greater<>> costs_;
  std::vector<double> values_;
};

// `ids` are the solver's constraint numbers, in the order of the model's constraints.
void expectAgreement(const Solver& solver, const RandomModel& model, const std::vector<Solver::Constraint>& ids) {
  const Oracle oracle(model);
  std::vector<Solver::Constraint> conflicts;
  for (const Solver::Constraint index : oracle.conflicts()) conflicts.push_back(ids[index]);
  ASSERT_EQ(std::vector(solver.conflicts().begin(), solver.conflicts().end()), conflicts);
  const auto values = layout_test::values(solver, model.variables);
  std::map<float, double> costs;
  for (const auto& constraint : model.constraints) costs[constraint.priority] += constraint.violation(values);
  for (const auto& [priority, cost] : oracle.costs()) EXPECT_NEAR(costs[priority], cost, tolerance(cost)) << priority;
  for (std::uint32_t i = 0; i < model.variables; ++i)
    EXPECT_NEAR(values[i], oracle.values()[i], tolerance(values[i])) << i;
}

// A model and a solver for it. Each change is made to both.
struct SolvedModel {
  RandomModel model;
  Solver solver;
  std::vector<Solver::Constraint> ids;

  explicit SolvedModel(RandomModel initial) : model(std::move(initial)) {
    model.addTo(solver);
    ids.resize(model.constraints.size());
    std::iota(ids.begin(), ids.end(), 0U);
    solver.solve();
  }
  void add(const RandomConstraint& constraint) {
    model.constraints.push_back(constraint);
    ids.push_back(solver.add(constraint.terms, constraint.constant, constraint.relation, constraint.priority));
  }
  void remove(std::uint32_t index) {
    solver.remove(ids[index]);
    model.constraints.erase(model.constraints.begin() + index);
    ids.erase(ids.begin() + index);
  }
  void setConstant(std::uint32_t index, double constant) {
    model.constraints[index].constant = constant;
    solver.setConstant(ids[index], constant);
  }
};

class SolverOracle : public testing::TestWithParam<std::uint32_t> {};

TEST_P(SolverOracle, AgreesOnConflictsCostsAndValues) {
  for (std::uint32_t seed = GetParam(); seed < GetParam() + 50; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const SolvedModel solved(RandomModel::make(seed));
    expectAgreement(solved.solver, solved.model, solved.ids);
    if (HasFatalFailure()) return;
  }
}

TEST_P(SolverOracle, AgreesOnModelsWithSeveralSubproblems) {
  for (std::uint32_t seed = GetParam(); seed < GetParam() + 10; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const SolvedModel solved(RandomModel::makeDisjoint(seed));
    expectAgreement(solved.solver, solved.model, solved.ids);
    if (HasFatalFailure()) return;
  }
}

// Adds, removes or changes a constraint. An added constraint can join subproblems; a removed constraint can split them.
void changeRandomly(SolvedModel& solved, std::mt19937& random) {
  const std::uint32_t change = RandomModel::randomBelow(random, 3);
  const auto index = RandomModel::randomBelow(random, 1 + static_cast<std::uint32_t>(solved.ids.size()));
  if (change == 0 || index == solved.ids.size()) {
    solved.add(RandomModel::randomConstraint(random, solved.model.variables));
  } else if (change == 1) {
    solved.remove(index);
  } else {
    solved.setConstant(index, RandomModel::randomConstant(random));
  }
}

TEST_P(SolverOracle, AgreesWhileSubproblemsAreJoinedAndSplit) {
  constexpr int steps = 12;
  for (std::uint32_t seed = GetParam(); seed < GetParam() + 2; ++seed) {
    SolvedModel solved(RandomModel::makeDisjoint(seed));
    std::mt19937 random(seed);
    for (int step = 0; step < steps; ++step) {
      SCOPED_TRACE("seed " + std::to_string(seed) + " step " + std::to_string(step));
      const std::uint32_t changes = 1 + RandomModel::randomBelow(random, 3);
      for (std::uint32_t i = 0; i < changes; ++i) changeRandomly(solved, random);
      solved.solver.solve();
      expectAgreement(solved.solver, solved.model, solved.ids);
      if (HasFatalFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SolverOracle, testing::Range<std::uint32_t>(0, 800, 50));

}  // namespace
