#include "simulator/layout/solver.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/layout/test_solver.hpp"

namespace {

using layout::Solver;
using layout_test::TestSolver;
using Relation = Solver::Relation;
using Constraints = std::vector<Solver::Constraint>;

constexpr double precision = 1e-9;

TEST(Solver, SolvesTheEmptyModel) {
  TestSolver solver;
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  EXPECT_EQ(solver.value(0), 0);
}

TEST(Solver, UndeterminedVariableIsZero) {
  TestSolver solver;
  const auto free = solver.addVariable();
  const auto first = solver.addVariable();
  const auto second = solver.addVariable();
  solver.follow(second, first, 10);
  solver.solve();
  EXPECT_EQ(solver.value(free), 0);
  EXPECT_EQ(solver.value(first), 0);
  EXPECT_EQ(solver.value(second), 10);
}

TEST(Solver, PrefersValuesNearZeroForTheVariablesAddedFirst) {
  TestSolver solver;
  const auto first = solver.addVariable();
  const auto second = solver.addVariable();
  solver.constrain({{first, 1}, {second, 1}}, -10, Relation::GreaterOrEqual);
  solver.atMost(second, 7);
  solver.solve();
  EXPECT_NEAR(solver.value(first), 3, precision);
  EXPECT_NEAR(solver.value(second), 7, precision);
}

TEST(Solver, NeverReturnsNegativeZero) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.set(x, 0);
  solver.solve();
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_FALSE(std::signbit(solver.value(x)));
}

TEST(Solver, ValuesDoNotChangeUntilTheNextSolve) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto constraint = solver.set(x, 5);
  EXPECT_EQ(solver.value(x), 0);
  solver.solve();
  EXPECT_EQ(solver.value(x), 5);
  solver.setConstant(constraint, -8);
  solver.set(x, 9);
  EXPECT_EQ(solver.value(x), 5);
  solver.solve();
  EXPECT_EQ(solver.value(x), 8);
}

TEST(Solver, AddsUpTermsOfTheSameVariable) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  solver.constrain({{x, 1}, {y, 1}, {x, 3}, {y, -1}}, -20, Relation::Equal);
  solver.solve();
  EXPECT_NEAR(solver.value(x), 5, precision);
  EXPECT_EQ(solver.value(y), 0);
}

TEST(Solver, SatisfiesEachRelation) {
  TestSolver solver;
  const auto low = solver.addVariable();
  const auto high = solver.addVariable();
  solver.atMost(low, -4);
  solver.atLeast(high, 6);
  solver.solve();
  EXPECT_NEAR(solver.value(low), -4, precision);
  EXPECT_NEAR(solver.value(high), 6, precision);
}

TEST(Solver, HigherPriorityOutranksAThousandLowerOnes) {
  TestSolver solver;
  const auto x = solver.addVariable();
  for (int i = 0; i < 1000; ++i) solver.set(x, 100, 250);
  solver.set(x, 3, 250.5F);
  solver.solve();
  EXPECT_NEAR(solver.value(x), 3, precision);
}

TEST(Solver, TinyViolationOutranksAHugeOneOfLowerPriority) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  solver.constrain({{y, 1}, {x, -1e6}}, 0, Relation::Equal);
  solver.set(x, 0.001, 999);
  solver.set(y, 0, 998);
  solver.solve();
  EXPECT_NEAR(solver.value(x), 0.001, precision);
  EXPECT_NEAR(solver.value(y), 1000, 1e-6);
}

TEST(Solver, MinimizesTheSumOfViolationsWithinAPriority) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.set(x, 10, 500);
  solver.set(x, 30, 500);
  solver.set(x, 90, 500);
  solver.solve();
  EXPECT_NEAR(solver.value(x), 30, precision);
}

TEST(Solver, MeasuresViolationsInTheUnitsOfTheConstraint) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.constrain({{x, 5}}, -50, Relation::Equal, 500);
  solver.set(x, 30, 500);
  solver.set(x, 90, 500);
  solver.solve();
  EXPECT_NEAR(solver.value(x), 10, precision);
}

TEST(Solver, PrioritiesBelowOneRankBelowPriorityOne) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.set(x, 20, -5);
  solver.atMost(x, 8, 1);
  solver.solve();
  EXPECT_NEAR(solver.value(x), 8, precision);
}

struct Banner {
  TestSolver solver;
  Solver::Variable bottom = solver.addVariable();
  Solver::Variable icon = solver.addVariable();
  Solver::Variable header = solver.addVariable();
  Solver::Variable body = solver.addVariable();
  Solver::Constraint bodyBottom;
  Constraints paddings;

  Banner() {
    solver.set(icon, 60);
    solver.set(header, 30);
    bodyBottom = solver.set(body, 80);
    for (const auto content : {body, icon, header}) {
      paddings.push_back(solver.constrain({{bottom, 1}, {content, -1}}, -22, Relation::GreaterOrEqual));
    }
    solver.set(bottom, 0, 50);
    solver.solve();
  }
};

TEST(Solver, BannerBottomIsOnePaddingBelowTheLowestContent) {
  Banner banner;
  EXPECT_TRUE(banner.solver.conflicts().empty());
  EXPECT_NEAR(banner.solver.value(banner.bottom), 102, precision);
}

TEST(Solver, BannerFollowsAChangedPadding) {
  Banner banner;
  for (const auto padding : banner.paddings) banner.solver.setConstant(padding, -63);
  banner.solver.solve();
  EXPECT_NEAR(banner.solver.value(banner.bottom), 143, precision);
}

TEST(Solver, BannerFollowsTheNewLowestContent) {
  Banner banner;
  banner.solver.setConstant(banner.bodyBottom, -20);
  banner.solver.solve();
  EXPECT_NEAR(banner.solver.value(banner.body), 20, precision);
  EXPECT_NEAR(banner.solver.value(banner.bottom), 82, precision);
}

TEST(Solver, ClearStartsANewModel) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.set(x, 1);
  solver.set(x, 2);
  solver.solve();
  solver.clear();
  EXPECT_TRUE(solver.conflicts().empty());
  EXPECT_EQ(solver.value(x), 0);
  const auto y = solver.addVariable();
  EXPECT_EQ(y, 0U);
  EXPECT_EQ(solver.set(y, 3), 0U);
  solver.solve();
  EXPECT_NEAR(solver.value(y), 3, precision);
}

TEST(Solver, SameModelGivesBitwiseEqualValues) {
  const auto solve = [] {
    std::vector<double> values;
    TestSolver solver;
    for (int i = 0; i < 20; ++i) solver.addVariable();
    for (Solver::Variable variable = 1; variable < 20; ++variable) {
      solver.constrain({{variable, 0.3}, {variable - 1, -0.7}, {variable / 2, 0.1}}, 1.0 / variable,
                       Relation::GreaterOrEqual, variable % 3 ? 1000 : 250);
      solver.set(variable, 100.0 / variable, static_cast<float>(10 + variable % 4));
    }
    solver.solve();
    for (Solver::Variable variable = 0; variable < 20; ++variable) values.push_back(solver.value(variable));
    return values;
  };
  EXPECT_EQ(solve(), solve());
}

}  // namespace
