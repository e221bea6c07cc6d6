// Models that are long or degenerate.
#include <gtest/gtest.h>

#include <vector>

#include "tests/layout/model.hpp"

namespace {

using layout::Solver;
using layout_test::Model;
using Relation = Solver::Relation;
using Term = Solver::Term;

constexpr double precision = 1e-9;

TEST(Solver, SolvesAChainOfAThousandVariables) {
  constexpr int length = 1000;
  Model model;
  std::vector<Solver::Variable> chain;
  chain.reserve(length);
  for (int i = 0; i < length; ++i) chain.push_back(model.addVariable());
  const auto anchor = model.set(chain[0], 1);
  for (std::size_t i = 1; i < length; ++i) model.follow(chain[i], chain[i - 1], 2);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  for (std::size_t i = 0; i < length; ++i) ASSERT_NEAR(model.value(chain[i]), 1 + 2.0 * static_cast<double>(i), 1e-6);
  model.setConstant(anchor, -101);
  model.solve();
  EXPECT_NEAR(model.value(chain[length - 1]), 101 + 2.0 * (length - 1), 1e-6);
}

TEST(Solver, SolvesAChainOfInequalitiesFromItsLooseEnd) {
  constexpr int length = 200;
  Model model;
  std::vector<Solver::Variable> chain;
  chain.reserve(length);
  for (int i = 0; i < length; ++i) chain.push_back(model.addVariable());
  for (std::size_t i = length - 1; i > 0; --i) {
    model.constrain({{chain[i], 1}, {chain[i - 1], -1}}, -3, Relation::GreaterOrEqual);
  }
  model.atLeast(chain[0], 7);
  model.set(chain[length - 1], 0, 10);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  for (std::size_t i = 0; i < length; ++i) ASSERT_NEAR(model.value(chain[i]), 7 + 3.0 * static_cast<double>(i), 1e-6);
}

// All constraints meet in the origin, and the rule of steepest descent alone goes round in circles there for ever.
TEST(Solver, LeavesACornerWhereSteepestDescentCycles) {
  constexpr double cone[][4] = {{-1474560, -128, 9216, -368640},
                                {-1152, -5.625, -36, 80},
                                {0.25, -0.002685546875, -0.046875, 0.25},
                                {256, -0.5, -8, -144}};
  constexpr double objective[] = {-128, -0.125, -960, 576};
  Model model;
  Solver::Variable x[4];
  for (auto& variable : x) {
    variable = model.addVariable();
    model.atLeast(variable, 0);
  }
  for (const auto& row : cone) {
    const auto slack = model.addVariable();
    model.constrain({{x[0], row[0]}, {x[1], row[1]}, {x[2], row[2]}, {x[3], row[3]}, {slack, 1}}, 0, Relation::Equal);
    model.atLeast(slack, 0);
  }
  for (const auto variable : x) model.atMost(variable, 1);
  model.constrain({{x[0], objective[0]}, {x[1], objective[1]}, {x[2], objective[2]}, {x[3], objective[3]}}, -1e5,
                  Relation::GreaterOrEqual, 500);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  double reached = 0;
  for (std::size_t i = 0; i < 4; ++i) reached += objective[i] * model.value(x[i]);
  EXPECT_NEAR(reached, 6.0625, 1e-6);
}

// Each corner of an assignment problem has many bases: all but a few pivots move nothing.
TEST(Solver, FindsTheOptimumOfAHighlyDegenerateAssignment) {
  constexpr std::size_t size = 8;
  Model model;
  Solver::Variable share[size][size];
  for (auto& row : share) {
    for (auto& cell : row) model.atLeast(cell = model.addVariable(), 0);
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
    model.add(row, -1, Relation::Equal, Solver::required);
    model.add(column, -1, Relation::Equal, Solver::required);
  }
  model.add(cost, 0, Relation::Equal, 100);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) {
      EXPECT_NEAR(model.value(share[i][j]), (i + j) % size == 0 ? 1 : 0, precision);
    }
  }
}

}  // namespace
