#include "simulator/layout/solver.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/layout/model.hpp"

namespace {

using layout::Solver;
using layout_test::Model;
using Relation = Solver::Relation;
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

TEST(Solver, OnePriorityMinimizesTheSumOfItsViolations) {
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
