#include "simulator/layout/solver.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/layout/model.hpp"

namespace {

using layout::Solver;
using layout_test::Model;
using Relation = Solver::Relation;
using Term = Solver::Term;
using Constraints = std::vector<Solver::Constraint>;

constexpr double precision = 1e-9;

TEST(Solver, SolvesTheEmptyModel) {
  Model model;
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  EXPECT_EQ(model.value(0), 0);
}

TEST(Solver, GivesZeroToAVariableThatNothingDetermines) {
  Model model;
  const auto free = model.addVariable();
  const auto first = model.addVariable();
  const auto second = model.addVariable();
  model.follow(second, first, 10);
  model.solve();
  EXPECT_EQ(model.value(free), 0);
  EXPECT_EQ(model.value(first), 0);
  EXPECT_EQ(model.value(second), 10);
}

TEST(Solver, BringsTheVariablesAddedFirstNearestToZeroWhereThereIsAChoice) {
  Model model;
  const auto first = model.addVariable();
  const auto second = model.addVariable();
  model.constrain({{first, 1}, {second, 1}}, -10, Relation::GreaterOrEqual);
  model.atMost(second, 7);
  model.solve();
  EXPECT_NEAR(model.value(first), 3, precision);
  EXPECT_NEAR(model.value(second), 7, precision);
}

TEST(Solver, NeverGivesANegativeZero) {
  Model model;
  const auto x = model.addVariable();
  model.set(x, 0);
  model.solve();
  EXPECT_EQ(model.value(x), 0);
  EXPECT_FALSE(std::signbit(model.value(x)));
}

TEST(Solver, ValuesAreThoseOfTheLastSolve) {
  Model model;
  const auto x = model.addVariable();
  const auto constraint = model.set(x, 5);
  EXPECT_EQ(model.value(x), 0);
  model.solve();
  EXPECT_EQ(model.value(x), 5);
  model.setConstant(constraint, -8);
  model.set(x, 9);
  EXPECT_EQ(model.value(x), 5);
  model.solve();
  EXPECT_EQ(model.value(x), 8);
}

TEST(Solver, AddsUpTermsOfTheSameVariable) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  model.constrain({{x, 1}, {y, 1}, {x, 3}, {y, -1}}, -20, Relation::Equal);
  model.solve();
  EXPECT_NEAR(model.value(x), 5, precision);
  EXPECT_EQ(model.value(y), 0);
}

TEST(Solver, HoldsEachRelation) {
  Model model;
  const auto low = model.addVariable();
  const auto high = model.addVariable();
  model.atMost(low, -4);
  model.atLeast(high, 6);
  model.solve();
  EXPECT_NEAR(model.value(low), -4, precision);
  EXPECT_NEAR(model.value(high), 6, precision);
}

TEST(Solver, AThousandLowPrioritiesNeverBeatOneHigher) {
  Model model;
  const auto x = model.addVariable();
  for (int i = 0; i < 1000; ++i) model.set(x, 100, 250);
  model.set(x, 3, 250.5F);
  model.solve();
  EXPECT_NEAR(model.value(x), 3, precision);
}

TEST(Solver, AHugeViolationBelowNeverBeatsATinyOneAbove) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  model.constrain({{y, 1}, {x, -1e6}}, 0, Relation::Equal);
  model.set(x, 0.001, 999);
  model.set(y, 0, 998);
  model.solve();
  EXPECT_NEAR(model.value(x), 0.001, precision);
  EXPECT_NEAR(model.value(y), 1000, 1e-6);
}

TEST(Solver, OnePriorityMinimisesTheSumOfItsViolations) {
  Model model;
  const auto x = model.addVariable();
  model.set(x, 10, 500);
  model.set(x, 30, 500);
  model.set(x, 90, 500);
  model.solve();
  EXPECT_NEAR(model.value(x), 30, precision);
}

TEST(Solver, MeasuresViolationsInTheUnitsOfTheConstraint) {
  Model model;
  const auto x = model.addVariable();
  model.constrain({{x, 5}}, -50, Relation::Equal, 500);
  model.set(x, 30, 500);
  model.set(x, 90, 500);
  model.solve();
  EXPECT_NEAR(model.value(x), 10, precision);
}

TEST(Solver, PrioritiesBelowOneStillCountLast) {
  Model model;
  const auto x = model.addVariable();
  model.set(x, 20, -5);
  model.atMost(x, 8, 1);
  model.solve();
  EXPECT_NEAR(model.value(x), 8, precision);
}

struct Banner {
  Model model;
  Solver::Variable bottom = model.addVariable();
  Solver::Variable icon = model.addVariable();
  Solver::Variable header = model.addVariable();
  Solver::Variable body = model.addVariable();
  Solver::Constraint bodyBottom;
  Constraints paddings;

  Banner() {
    model.set(icon, 60);
    model.set(header, 30);
    bodyBottom = model.set(body, 80);
    for (const auto content : {body, icon, header}) {
      paddings.push_back(model.constrain({{bottom, 1}, {content, -1}}, -22, Relation::GreaterOrEqual));
    }
    model.set(bottom, 0, 50);
    model.solve();
  }
};

TEST(Solver, BannerEndsAPaddingBelowItsLowestContent) {
  Banner banner;
  EXPECT_TRUE(banner.model.conflicts().empty());
  EXPECT_NEAR(banner.model.value(banner.bottom), 102, precision);
}

TEST(Solver, BannerFollowsAChangedPadding) {
  Banner banner;
  for (const auto padding : banner.paddings) banner.model.setConstant(padding, -63);
  banner.model.solve();
  EXPECT_NEAR(banner.model.value(banner.bottom), 143, precision);
}

TEST(Solver, BannerFollowsAnotherContentThatBecomesTheLowest) {
  Banner banner;
  banner.model.setConstant(banner.bodyBottom, -20);
  banner.model.solve();
  EXPECT_NEAR(banner.model.value(banner.body), 20, precision);
  EXPECT_NEAR(banner.model.value(banner.bottom), 82, precision);
}

TEST(Solver, SolvesAChainOfAThousandVariables) {
  constexpr int length = 1000;
  Model model;
  std::vector<Solver::Variable> chain;
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

TEST(Solver, ClearStartsANewModel) {
  Model model;
  const auto x = model.addVariable();
  model.set(x, 1);
  model.set(x, 2);
  model.solve();
  model.clear();
  EXPECT_TRUE(model.conflicts().empty());
  EXPECT_EQ(model.value(x), 0);
  const auto y = model.addVariable();
  EXPECT_EQ(y, 0U);
  EXPECT_EQ(model.set(y, 3), 0U);
  model.solve();
  EXPECT_NEAR(model.value(y), 3, precision);
}

TEST(Solver, SameModelGivesSameBits) {
  const auto solve = [] {
    std::vector<double> values;
    Model model;
    for (int i = 0; i < 20; ++i) model.addVariable();
    for (Solver::Variable v = 1; v < 20; ++v) {
      model.constrain({{v, 0.3}, {v - 1, -0.7}, {v / 2, 0.1}}, 1.0 / v, Relation::GreaterOrEqual, v % 3 ? 1000 : 250);
      model.set(v, 100.0 / v, static_cast<float>(10 + v % 4));
    }
    model.solve();
    for (Solver::Variable v = 0; v < 20; ++v) values.push_back(model.value(v));
    return values;
  };
  EXPECT_EQ(solve(), solve());
}

}  // namespace
