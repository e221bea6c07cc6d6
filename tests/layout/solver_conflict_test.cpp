// What is left out, ignored or limited: conflicts, removed constraints and bad input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "simulator/layout/solver.hpp"
#include "tests/layout/model.hpp"

namespace {

using layout::Solver;
using layout_test::Model;
using Relation = Solver::Relation;
using Constraints = std::vector<Solver::Constraint>;

constexpr double precision = 1e-9;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Solver, AcceptsRedundantRequiredEqualities) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  const auto z = model.addVariable();
  model.follow(y, x, 0.1);
  model.follow(z, y, 0.2);
  model.follow(z, x, 0.3);
  model.constrain({{x, 3}, {z, -3}}, 0.9, Relation::Equal);
  model.set(x, 1);
  model.set(z, 1.3);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  EXPECT_NEAR(model.value(y), 1.1, precision);
  EXPECT_NEAR(model.value(z), 1.3, precision);
}

TEST(Solver, NamesTheConstraintThatConflicts) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  model.set(x, 10);
  const auto contradiction = model.set(x, 20);
  model.follow(y, x, 5);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), Constraints{contradiction});
  EXPECT_NEAR(model.value(x), 10, precision);
  EXPECT_NEAR(model.value(y), 15, precision);
}

TEST(Solver, NamesAnInequalityThatCannotHold) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  model.atLeast(x, 10);
  model.constrain({{y, 1}, {x, -2}}, 0, Relation::GreaterOrEqual);
  const auto tooLow = model.atMost(y, 15);
  model.atMost(y, 30);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), Constraints{tooLow});
  EXPECT_NEAR(model.value(x), 10, precision);
  EXPECT_NEAR(model.value(y), 20, precision);
}

TEST(Solver, LeavesOutAnEqualityThatContradictsAnEarlierInequality) {
  Model model;
  const auto x = model.addVariable();
  model.atLeast(x, 10);
  const auto equality = model.set(x, 5);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), Constraints{equality});
  EXPECT_NEAR(model.value(x), 10, precision);
}

TEST(Solver, NamesSeveralConflictsInOrderOfAddition) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  model.set(x, 1);
  const auto second = model.set(x, 2);
  model.set(y, 1);
  const auto third = model.atLeast(y, 2);
  const auto empty = model.constrain({}, 1, Relation::Equal);
  model.constrain({}, 1, Relation::GreaterOrEqual);
  const auto fourth = model.constrain({{x, 1}, {y, 1}}, -3, Relation::Equal);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), (Constraints{second, third, empty, fourth}));
}

TEST(Solver, ForgetsAConflictThatIsResolved) {
  Model model;
  const auto x = model.addVariable();
  model.set(x, 10);
  const auto other = model.set(x, 20);
  model.solve();
  ASSERT_EQ(model.namedConflicts(), Constraints{other});
  model.setConstant(other, -10);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
}

TEST(Solver, NamesAConflictThatAChangedConstantMakes) {
  Model model;
  const auto x = model.addVariable();
  const auto first = model.set(x, 10);
  const auto second = model.set(x, 10);
  model.solve();
  ASSERT_TRUE(model.conflicts().empty());
  model.setConstant(first, -11);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), Constraints{second});
  EXPECT_NEAR(model.value(x), 11, precision);
}

TEST(Solver, PriorityAboveRequiredIsRequired) {
  Model model;
  const auto x = model.addVariable();
  model.set(x, 10);
  const auto conflict = model.set(x, 20, 2000);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), Constraints{conflict});
}

TEST(Solver, RemovedConstraintsHaveNoEffect) {
  Model model;
  const auto x = model.addVariable();
  const auto first = model.set(x, 10);
  const auto second = model.set(x, 20);
  model.set(x, 30, 500);
  model.solve();
  ASSERT_EQ(model.namedConflicts(), Constraints{second});
  model.remove(first);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  EXPECT_NEAR(model.value(x), 20, precision);
  model.remove(second);
  model.solve();
  EXPECT_NEAR(model.value(x), 30, precision);
}

TEST(Solver, IgnoresUnknownAndRemovedConstraints) {
  Model model;
  const auto x = model.addVariable();
  model.set(x, 10);
  const auto removed = model.set(x, 20, 500);
  model.remove(removed);
  model.remove(removed);
  model.setConstant(removed, 7);
  model.remove(77);
  model.setConstant(77, 7);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  EXPECT_NEAR(model.value(x), 10, precision);
  EXPECT_EQ(model.value(77), 0);
}

TEST(Solver, LeavesOutConstraintsWithNumbersThatAreNotFinite) {
  Model model;
  const auto x = model.addVariable();
  const Constraints refused{
      model.set(x, notANumber),
      model.set(x, infinity, 500),
      model.constrain({{x, notANumber}}, 1, Relation::Equal),
      model.constrain({{x, -infinity}}, 1, Relation::LessOrEqual, 20),
      model.constrain({{x, 1.5e308}, {x, 1.5e308}}, 1, Relation::Equal),
      model.constrain({{x, 1}}, 1, Relation::Equal, std::numeric_limits<float>::quiet_NaN()),
  };
  model.set(x, 10);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), refused);
  EXPECT_NEAR(model.value(x), 10, precision);
}

TEST(Solver, LeavesOutConstraintsOnUnknownVariables) {
  Model model;
  const auto x = model.addVariable();
  const auto refused = model.constrain({{x, 1}, {x + 1, 1}}, 1, Relation::Equal);
  model.set(x, 10);
  model.addVariable();
  model.solve();
  EXPECT_EQ(model.namedConflicts(), Constraints{refused});
  EXPECT_NEAR(model.value(x), 10, precision);
}

TEST(Solver, TakesAConstraintBackWhoseConstantIsFiniteAgain) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  const auto constraint = model.set(x, 10);
  model.follow(y, x, 1);
  model.solve();
  model.setConstant(constraint, notANumber);
  model.solve();
  EXPECT_EQ(model.namedConflicts(), Constraints{constraint});
  EXPECT_EQ(model.value(x), 0);
  EXPECT_EQ(model.value(y), 1);
  model.setConstant(constraint, -4);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  EXPECT_NEAR(model.value(y), 5, precision);
}

TEST(Solver, LimitsHugeConstantsWithoutHarmToTheRest) {
  Model model;
  const auto x = model.addVariable();
  const auto y = model.addVariable();
  const auto z = model.addVariable();
  model.atMost(x, std::numeric_limits<double>::max());
  model.set(x, 12.5);
  model.constrain({{y, 1e-300}}, -1, Relation::Equal);
  model.constrain({{z, 1e300}, {x, -1e300}}, 0, Relation::Equal);
  model.solve();
  EXPECT_TRUE(model.conflicts().empty());
  EXPECT_NEAR(model.value(x), 12.5, 1e-6);
  EXPECT_GT(model.value(y), 1e6);
  EXPECT_LE(model.value(y), 1e7);
  EXPECT_NEAR(model.value(z), 12.5, 1e-6);
}

TEST(Solver, ValuesStayFiniteWhenAChainGrowsBeyondAllNumbers) {
  Model model;
  const auto other = model.addVariable();
  model.set(other, 4);
  auto last = model.addVariable();
  model.set(last, 1);
  for (int i = 0; i < 400; ++i) {
    const auto next = model.addVariable();
    model.constrain({{next, 1}, {last, -1e6}}, 0, Relation::Equal);
    last = next;
  }
  model.solve();
  for (Solver::Variable variable = 0; variable <= last; ++variable) ASSERT_TRUE(std::isfinite(model.value(variable)));
  EXPECT_NEAR(model.value(other), 4, precision);
}

}  // namespace
