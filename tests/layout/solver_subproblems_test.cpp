// Tests of subproblems. The solver splits the constraints into subproblems that have no variable in common, and solves
// a subproblem again only if it has changed.
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "tests/layout/test_solver.hpp"

namespace {

using layout::Solver;
using layout_test::TestSolver;
using Relation = Solver::Relation;
using Constraints = std::vector<Solver::Constraint>;

constexpr double precision = 1e-9;

// A column of boxes with preferred and minimum heights, and a limited total height.
struct Column {
  static constexpr Solver::Variable boxes = 10;
  Solver::Variable end;
  Solver::Constraint heightLimit;

  Column(TestSolver& solver, double height) {
    std::vector<Solver::Variable> ends;
    for (Solver::Variable box = 0; box < boxes; ++box) ends.push_back(solver.addVariable());
    solver.atLeast(ends[0], 5);
    for (Solver::Variable box = 1; box < boxes; ++box) {
      solver.constrain({{ends[box], 1}, {ends[box - 1], -1}}, -5, Relation::GreaterOrEqual);
      solver.follow(ends[box], ends[box - 1], 10.0 + box, 500);
    }
    end = ends.back();
    heightLimit = solver.atMost(end, height);
  }
};

struct Columns {
  TestSolver solver;
  std::vector<Column> columns;

  explicit Columns(std::size_t count) {
    add(count);
    solver.solve();
  }
  void add(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) columns.emplace_back(solver, 90.0);
  }
  // Solves and returns the number of pivots.
  std::size_t solveAndCountPivots() {
    const std::size_t before = solver.pivotCount();
    solver.solve();
    return solver.pivotCount() - before;
  }
};

TEST(SolverSubproblems, WorkAndMemoryAreProportionalToTheirNumber) {
  const Columns one(1);
  const Columns few(20);
  const Columns many(200);
  ASSERT_GT(one.solver.pivotCount(), 0U);
  EXPECT_EQ(few.solver.pivotCount(), 20 * one.solver.pivotCount());
  EXPECT_EQ(many.solver.pivotCount(), 200 * one.solver.pivotCount());
  EXPECT_EQ(few.solver.cellCount(), 20 * one.solver.cellCount());
  EXPECT_EQ(many.solver.cellCount(), 200 * one.solver.cellCount());
}

TEST(SolverSubproblems, AddedSubproblemIsSolvedAlone) {
  const std::size_t pivotsOfOneColumn = Columns(1).solver.pivotCount();
  Columns many(200);
  many.add(1);
  EXPECT_EQ(many.solveAndCountPivots(), pivotsOfOneColumn);
  EXPECT_NEAR(many.solver.value(many.columns.back().end), 90, precision);
}

TEST(SolverSubproblems, ChangedConstantAffectsOnlyItsSubproblem) {
  Columns one(1);
  Columns many(200);
  one.solver.setConstant(one.columns[0].heightLimit, -60);
  many.solver.setConstant(many.columns[77].heightLimit, -60);
  const std::size_t pivotsOfOneColumn = one.solveAndCountPivots();
  ASSERT_GT(pivotsOfOneColumn, 0U);
  EXPECT_EQ(many.solveAndCountPivots(), pivotsOfOneColumn);
  EXPECT_NEAR(many.solver.value(many.columns[77].end), 60, precision);
  EXPECT_NEAR(many.solver.value(many.columns[78].end), 90, precision);
}

TEST(SolverSubproblems, UnchangedSubproblemsAreNotSolvedAgainAfterClear) {
  const std::size_t pivotsOfOneColumn = Columns(1).solver.pivotCount();
  Columns many(20);
  many.solver.clear();
  // Adds another column first, so the variables of the other columns get new numbers.
  const Column added(many.solver, 70);
  many.columns.clear();
  many.add(20);
  EXPECT_LE(many.solveAndCountPivots(), 2 * pivotsOfOneColumn);
  EXPECT_NEAR(many.solver.value(added.end), 70, precision);
  for (const Column& column : many.columns) EXPECT_NEAR(many.solver.value(column.end), 90, precision);
}

TEST(SolverSubproblems, ClearedSolverUsesNoMemoryAfterTheNextSolve) {
  Columns many(20);
  many.solver.clear();
  many.solver.solve();
  EXPECT_EQ(many.solver.cellCount(), 0U);
}

TEST(SolverSubproblems, ConstraintJoinsSubproblemsUntilItIsRemoved) {
  Columns two(2);
  const std::size_t cellsOfSeparateColumns = two.solver.cellCount();
  const auto join = two.solver.follow(two.columns[0].end, two.columns[1].end, -20);
  two.solver.solve();
  EXPECT_NEAR(two.solver.value(two.columns[0].end), 70, precision);
  EXPECT_GT(two.solver.cellCount(), cellsOfSeparateColumns + Column::boxes + Column::boxes + 1);
  two.solver.remove(join);
  two.solver.solve();
  EXPECT_NEAR(two.solver.value(two.columns[0].end), 90, precision);
  EXPECT_EQ(two.solver.cellCount(), cellsOfSeparateColumns);
}

TEST(SolverSubproblems, TermsThatCancelOutDoNotJoinSubproblems) {
  Columns two(2);
  const std::size_t cellsOfSeparateColumns = two.solver.cellCount();
  const auto first = two.columns[0].end;
  const auto second = two.columns[1].end;
  two.solver.constrain({{first, 1}, {second, 2}, {second, -2}}, -80, Relation::LessOrEqual);
  two.solver.solve();
  EXPECT_NEAR(two.solver.value(first), 80, precision);
  EXPECT_EQ(two.solver.cellCount(), cellsOfSeparateColumns + Column::boxes + 1);
}

TEST(SolverSubproblems, ConflictsAreReportedInOrderOfAddition) {
  Columns three(3);
  const auto last = three.solver.atLeast(three.columns[2].end, 91);
  const auto empty = three.solver.constrain({}, 1, Relation::Equal);
  const auto first = three.solver.atLeast(three.columns[0].end, 92);
  three.solver.solve();
  EXPECT_EQ(three.solver.conflictList(), (Constraints{last, empty, first}));
  three.solver.setConstant(last, -80);
  three.solver.solve();
  EXPECT_EQ(three.solver.conflictList(), (Constraints{empty, first}));
}

TEST(SolverSubproblems, ConflictInOneSubproblemKeepsTheBasesOfTheOthers) {
  Columns one(1);
  Columns many(20);
  many.solver.atLeast(many.columns[3].end, 91);
  many.solver.solve();
  ASSERT_EQ(many.solver.conflicts().size(), 1U);
  one.solver.setConstant(one.columns[0].heightLimit, -60);
  many.solver.setConstant(many.columns[7].heightLimit, -60);
  EXPECT_EQ(many.solveAndCountPivots(), one.solveAndCountPivots());
  EXPECT_EQ(many.solver.conflicts().size(), 1U);
}

}  // namespace
