// Tests of the solver with large models and with degenerate models.
#include <gtest/gtest.h>

#include <vector>

#include "tests/layout/test_solver.hpp"

namespace {

using layout::Solver;
using layout_test::TestSolver;
using Relation = Solver::Relation;
using Term = Solver::Term;

constexpr double precision = 1e-9;

TEST(Solver, SolvesAChainOfAThousandVariables) {
  constexpr int length = 1000;
  TestSolver solver;
  std::vector<Solver::Variable> chain;
  chain.reserve(length);
  for (int i = 0; i < length; ++i) chain.push_back(solver.addVariable());
  const auto anchor = solver.set(chain[0], 1);
  for (std::size_t i = 1; i < length; ++i) solver.follow(chain[i], chain[i - 1], 2);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  for (std::size_t i = 0; i < length; ++i) ASSERT_NEAR(solver.value(chain[i]), 1 + 2.0 * static_cast<double>(i), 1e-6);
  solver.setConstant(anchor, -101);
  solver.solve();
  EXPECT_NEAR(solver.value(chain[length - 1]), 101 + 2.0 * (length - 1), 1e-6);
}

TEST(Solver, SolvesAChainOfInequalitiesAddedInReverseOrder) {
  constexpr int length = 200;
  TestSolver solver;
  std::vector<Solver::Variable> chain;
  chain.reserve(length);
  for (int i = 0; i < length; ++i) chain.push_back(solver.addVariable());
  for (std::size_t i = length - 1; i > 0; --i) {
    solver.constrain({{chain[i], 1}, {chain[i - 1], -1}}, -3, Relation::GreaterOrEqual);
  }
  solver.atLeast(chain[0], 7);
  solver.set(chain[length - 1], 0, 10);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  for (std::size_t i = 0; i < length; ++i) ASSERT_NEAR(solver.value(chain[i]), 7 + 3.0 * static_cast<double>(i), 1e-6);
}

// All constraints meet at the origin. A solver that uses only the steepest-descent rule cycles there forever.
TEST(Solver, LeavesAVertexWhereSteepestDescentCycles) {
  constexpr double cone[][4] = {{-1474560, -128, 9216, -368640},
                                {-1152, -5.625, -36, 80},
                                {0.25, -0.002685546875, -0.046875, 0.25},
                                {256, -0.5, -8, -144}};
  constexpr double objective[] = {-128, -0.125, -960, 576};
  TestSolver solver;
  Solver::Variable x[4];
  for (auto& variable : x) {
    variable = solver.addVariable();
    solver.atLeast(variable, 0);
  }
  for (const auto& row : cone) {
    const auto slack = solver.addVariable();
    solver.constrain({{x[0], row[0]}, {x[1], row[1]}, {x[2], row[2]}, {x[3], row[3]}, {slack, 1}}, 0, Relation::Equal);
    solver.atLeast(slack, 0);
  }
  for (const auto variable : x) solver.atMost(variable, 1);
  solver.constrain({{x[0], objective[0]}, {x[1], objective[1]}, {x[2], objective[2]}, {x[3], objective[3]}}, -1e5,
                   Relation::GreaterOrEqual, 500);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  double objectiveValue = 0;
  for (std::size_t i = 0; i < 4; ++i) objectiveValue += objective[i] * solver.value(x[i]);
  EXPECT_NEAR(objectiveValue, 6.0625, 1e-6);
}

// Each vertex of an assignment problem has many bases, so most pivots do not change any value.
TEST(Solver, FindsTheOptimumOfAHighlyDegenerateAssignment) {
  constexpr std::size_t size = 8;
  TestSolver solver;
  Solver::Variable share[size][size];
  for (auto& row : share) {
    for (auto& cell : row) solver.atLeast(cell = solver.addVariable(), 0);
  }
  std::vector<Term> cost;
  for (std::size_t i = 0; i < size; ++i) {
    std::vector<Term> row;
    std::vector<Term> column;
    for (std::size_t j = 0; j < size; ++j) {
      row.push_back({share[i][j], 1});
      column.push_back({share[j][i], 1});
      cost.push_back({share[i][j], static_cast<double>((i + j) % size) + 1});
    }
    solver.add(row, -1, Relation::Equal, Solver::required);
    solver.add(column, -1, Relation::Equal, Solver::required);
  }
  solver.add(cost, 0, Relation::Equal, 100);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) {
      EXPECT_NEAR(solver.value(share[i][j]), (i + j) % size == 0 ? 1 : 0, precision);
    }
  }
}

}  // namespace
