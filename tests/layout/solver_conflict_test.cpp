// Tests of the solver with conflicting constraints, removed constraints and invalid input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "simulator/layout/solver.hpp"
#include "tests/layout/test_solver.hpp"

namespace {

using layout::Solver;
using layout_test::TestSolver;
using Relation = Solver::Relation;
using Constraints = std::vector<Solver::Constraint>;

constexpr double precision = 1e-9;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Solver, AcceptsRedundantRequiredEqualities) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  const auto z = solver.addVariable();
  solver.follow(y, x, 0.1);
  solver.follow(z, y, 0.2);
  solver.follow(z, x, 0.3);
  solver.constrain({{x, 3}, {z, -3}}, 0.9, Relation::Equal);
  solver.set(x, 1);
  solver.set(z, 1.3);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  EXPECT_NEAR(solver.value(y), 1.1, precision);
  EXPECT_NEAR(solver.value(z), 1.3, precision);
}

TEST(Solver, ReportsAConflictingEquality) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  solver.set(x, 10);
  const auto contradiction = solver.set(x, 20);
  solver.follow(y, x, 5);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), Constraints{contradiction});
  EXPECT_NEAR(solver.value(x), 10, precision);
  EXPECT_NEAR(solver.value(y), 15, precision);
}

TEST(Solver, ReportsAnInequalityThatCannotBeSatisfied) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  solver.atLeast(x, 10);
  solver.constrain({{y, 1}, {x, -2}}, 0, Relation::GreaterOrEqual);
  const auto tooLow = solver.atMost(y, 15);
  solver.atMost(y, 30);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), Constraints{tooLow});
  EXPECT_NEAR(solver.value(x), 10, precision);
  EXPECT_NEAR(solver.value(y), 20, precision);
}

TEST(Solver, ReportsAnEqualityThatContradictsAnEarlierInequality) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.atLeast(x, 10);
  const auto equality = solver.set(x, 5);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), Constraints{equality});
  EXPECT_NEAR(solver.value(x), 10, precision);
}

TEST(Solver, ReportsConflictsInOrderOfAddition) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  solver.set(x, 1);
  const auto second = solver.set(x, 2);
  solver.set(y, 1);
  const auto third = solver.atLeast(y, 2);
  const auto empty = solver.constrain({}, 1, Relation::Equal);
  solver.constrain({}, 1, Relation::GreaterOrEqual);
  const auto fourth = solver.constrain({{x, 1}, {y, 1}}, -3, Relation::Equal);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), (Constraints{second, third, empty, fourth}));
}

TEST(Solver, StopsReportingAResolvedConflict) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.set(x, 10);
  const auto other = solver.set(x, 20);
  solver.solve();
  ASSERT_EQ(solver.conflictList(), Constraints{other});
  solver.setConstant(other, -10);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
}

TEST(Solver, ReportsAConflictCausedByAChangedConstant) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto first = solver.set(x, 10);
  const auto second = solver.set(x, 10);
  solver.solve();
  ASSERT_TRUE(solver.conflicts().empty());
  solver.setConstant(first, -11);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), Constraints{second});
  EXPECT_NEAR(solver.value(x), 11, precision);
}

TEST(Solver, TreatsAPriorityAboveRequiredAsRequired) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.set(x, 10);
  const auto conflict = solver.set(x, 20, 2000);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), Constraints{conflict});
}

TEST(Solver, RemovedConstraintsHaveNoEffect) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto first = solver.set(x, 10);
  const auto second = solver.set(x, 20);
  solver.set(x, 30, 500);
  solver.solve();
  ASSERT_EQ(solver.conflictList(), Constraints{second});
  solver.remove(first);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  EXPECT_NEAR(solver.value(x), 20, precision);
  solver.remove(second);
  solver.solve();
  EXPECT_NEAR(solver.value(x), 30, precision);
}

TEST(Solver, IgnoresUnknownAndRemovedConstraints) {
  TestSolver solver;
  const auto x = solver.addVariable();
  solver.set(x, 10);
  const auto removed = solver.set(x, 20, 500);
  solver.remove(removed);
  solver.remove(removed);
  solver.setConstant(removed, 7);
  solver.remove(77);
  solver.setConstant(77, 7);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  EXPECT_NEAR(solver.value(x), 10, precision);
  EXPECT_EQ(solver.value(77), 0);
}

TEST(Solver, RejectsConstraintsWithNonFiniteNumbers) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const Constraints rejected{
      solver.set(x, notANumber),
      solver.set(x, infinity, 500),
      solver.constrain({{x, notANumber}}, 1, Relation::Equal),
      solver.constrain({{x, -infinity}}, 1, Relation::LessOrEqual, 20),
      solver.constrain({{x, 1.5e308}, {x, 1.5e308}}, 1, Relation::Equal),
      solver.constrain({{x, 1}}, 1, Relation::Equal, std::numeric_limits<float>::quiet_NaN()),
  };
  solver.set(x, 10);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), rejected);
  EXPECT_NEAR(solver.value(x), 10, precision);
}

TEST(Solver, RejectsConstraintsOnUnknownVariables) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto rejected = solver.constrain({{x, 1}, {x + 1, 1}}, 1, Relation::Equal);
  solver.set(x, 10);
  solver.addVariable();
  solver.solve();
  EXPECT_EQ(solver.conflictList(), Constraints{rejected});
  EXPECT_NEAR(solver.value(x), 10, precision);
}

TEST(Solver, RestoresAConstraintWhoseConstantIsFiniteAgain) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  const auto constraint = solver.set(x, 10);
  solver.follow(y, x, 1);
  solver.solve();
  solver.setConstant(constraint, notANumber);
  solver.solve();
  EXPECT_EQ(solver.conflictList(), Constraints{constraint});
  EXPECT_EQ(solver.value(x), 0);
  EXPECT_EQ(solver.value(y), 1);
  solver.setConstant(constraint, -4);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  EXPECT_NEAR(solver.value(y), 5, precision);
}

TEST(Solver, LimitsHugeConstantsWithoutLossOfPrecisionElsewhere) {
  TestSolver solver;
  const auto x = solver.addVariable();
  const auto y = solver.addVariable();
  const auto z = solver.addVariable();
  solver.atMost(x, std::numeric_limits<double>::max());
  solver.set(x, 12.5);
  solver.constrain({{y, 1e-300}}, -1, Relation::Equal);
  solver.constrain({{z, 1e300}, {x, -1e300}}, 0, Relation::Equal);
  solver.solve();
  EXPECT_TRUE(solver.conflicts().empty());
  EXPECT_NEAR(solver.value(x), 12.5, 1e-6);
  EXPECT_GT(solver.value(y), 1e6);
  EXPECT_LE(solver.value(y), 1e7);
  EXPECT_NEAR(solver.value(z), 12.5, 1e-6);
}

TEST(Solver, ValuesStayFiniteWhenAChainOverflows) {
  TestSolver solver;
  const auto other = solver.addVariable();
  solver.set(other, 4);
  auto last = solver.addVariable();
  solver.set(last, 1);
  for (int i = 0; i < 400; ++i) {
    const auto next = solver.addVariable();
    solver.constrain({{next, 1}, {last, -1e6}}, 0, Relation::Equal);
    last = next;
  }
  solver.solve();
  for (Solver::Variable variable = 0; variable <= last; ++variable) ASSERT_TRUE(std::isfinite(solver.value(variable)));
  EXPECT_NEAR(solver.value(other), 4, precision);
}

}  // namespace
