// What no constraint ties together is solved apart, and again only when it changes.
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "tests/layout/model.hpp"

namespace {

using layout::Solver;
using layout_test::Model;
using Relation = Solver::Relation;
using Constraints = std::vector<Solver::Constraint>;

constexpr double precision = 1e-9;

// A column of boxes, each as high as it would like to be or as its share of the room.
struct Column {
  static constexpr Solver::Variable boxes = 10;
  Solver::Variable end;
  Solver::Constraint room;

  Column(Model& model, double height) {
    std::vector<Solver::Variable> ends;
    for (Solver::Variable box = 0; box < boxes; ++box) ends.push_back(model.addVariable());
    model.atLeast(ends[0], 5);
    for (Solver::Variable box = 1; box < boxes; ++box) {
      model.constrain({{ends[box], 1}, {ends[box - 1], -1}}, -5, Relation::GreaterOrEqual);
      model.follow(ends[box], ends[box - 1], 10.0 + box, 500);
    }
    end = ends.back();
    room = model.atMost(end, height);
  }
};

struct Columns {
  Model model;
  std::vector<Column> columns;

  explicit Columns(std::size_t count) {
    add(count);
    model.solve();
  }
  void add(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) columns.emplace_back(model, 90.0);
  }
  // The pivots of a solve.
  std::size_t pivots() {
    const std::size_t before = model.pivotCount();
    model.solve();
    return model.pivotCount() - before;
  }
};

TEST(SolverParts, WorkAndMemoryGrowWithTheirNumberOnly) {
  const Columns one(1);
  const Columns few(20);
  const Columns many(200);
  ASSERT_GT(one.model.pivotCount(), 0U);
  EXPECT_EQ(few.model.pivotCount(), 20 * one.model.pivotCount());
  EXPECT_EQ(many.model.pivotCount(), 200 * one.model.pivotCount());
  EXPECT_EQ(few.model.cellCount(), 20 * one.model.cellCount());
  EXPECT_EQ(many.model.cellCount(), 200 * one.model.cellCount());
}

TEST(SolverParts, AnAddedPartIsSolvedAlone) {
  const std::size_t ofOne = Columns(1).model.pivotCount();
  Columns many(200);
  many.add(1);
  EXPECT_EQ(many.pivots(), ofOne);
  EXPECT_NEAR(many.model.value(many.columns.back().end), 90, precision);
}

TEST(SolverParts, AChangedConstantConcernsItsPartAlone) {
  Columns one(1);
  Columns many(200);
  one.model.setConstant(one.columns[0].room, -60);
  many.model.setConstant(many.columns[77].room, -60);
  const std::size_t ofOne = one.pivots();
  ASSERT_GT(ofOne, 0U);
  EXPECT_EQ(many.pivots(), ofOne);
  EXPECT_NEAR(many.model.value(many.columns[77].end), 60, precision);
  EXPECT_NEAR(many.model.value(many.columns[78].end), 90, precision);
}

TEST(SolverParts, AModelToldAnewIsNotSolvedAnewWhereItIsTheSame) {
  const std::size_t ofOne = Columns(1).model.pivotCount();
  Columns many(20);
  many.model.clear();
  // Another one before them, so that all numbers are different.
  const Column added(many.model, 70);
  many.columns.clear();
  many.add(20);
  EXPECT_LE(many.pivots(), 2 * ofOne);
  EXPECT_NEAR(many.model.value(added.end), 70, precision);
  for (const Column& column : many.columns) EXPECT_NEAR(many.model.value(column.end), 90, precision);
}

TEST(SolverParts, AClearedModelHoldsNoMemoryAfterTheNextSolve) {
  Columns many(20);
  many.model.clear();
  many.model.solve();
  EXPECT_EQ(many.model.cellCount(), 0U);
}

TEST(SolverParts, AConstraintJoinsPartsUntilItIsRemoved) {
  Columns two(2);
  const std::size_t apart = two.model.cellCount();
  const auto join = two.model.follow(two.columns[0].end, two.columns[1].end, -20);
  two.model.solve();
  EXPECT_NEAR(two.model.value(two.columns[0].end), 70, precision);
  EXPECT_GT(two.model.cellCount(), apart + Column::boxes + Column::boxes + 1);
  two.model.remove(join);
  two.model.solve();
  EXPECT_NEAR(two.model.value(two.columns[0].end), 90, precision);
  EXPECT_EQ(two.model.cellCount(), apart);
}

TEST(SolverParts, ATermThatCancelsOutTiesNothing) {
  Columns two(2);
  const std::size_t apart = two.model.cellCount();
  const auto first = two.columns[0].end;
  const auto second = two.columns[1].end;
  two.model.constrain({{first, 1}, {second, 2}, {second, -2}}, -80, Relation::LessOrEqual);
  two.model.solve();
  EXPECT_NEAR(two.model.value(first), 80, precision);
  EXPECT_EQ(two.model.cellCount(), apart + Column::boxes + 1);
}

TEST(SolverParts, ConflictsOfAllPartsAreNamedInOrderOfAddition) {
  Columns three(3);
  const auto last = three.model.atLeast(three.columns[2].end, 91);
  const auto empty = three.model.constrain({}, 1, Relation::Equal);
  const auto first = three.model.atLeast(three.columns[0].end, 92);
  three.model.solve();
  EXPECT_EQ(three.model.namedConflicts(), (Constraints{last, empty, first}));
  three.model.setConstant(last, -80);
  three.model.solve();
  EXPECT_EQ(three.model.namedConflicts(), (Constraints{empty, first}));
}

TEST(SolverParts, AConflictOfOnePartLeavesTheOthersTheirBasis) {
  Columns one(1);
  Columns many(20);
  many.model.atLeast(many.columns[3].end, 91);
  many.model.solve();
  ASSERT_EQ(many.model.conflicts().size(), 1U);
  one.model.setConstant(one.columns[0].room, -60);
  many.model.setConstant(many.columns[7].room, -60);
  EXPECT_EQ(many.pivots(), one.pivots());
  EXPECT_EQ(many.model.conflicts().size(), 1U);
}

}  // namespace
