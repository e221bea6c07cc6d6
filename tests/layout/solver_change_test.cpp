// Tests of the solver after constants have changed. It continues from its last result, and must find the same values as
// a new solver.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "simulator/layout/solver.hpp"
#include "tests/layout/random_model.hpp"

namespace {

using layout::Solver;
using layout_test::RandomModel;

void expectSameAsNewSolver(const Solver& changed, const RandomModel& model) {
  Solver fresh;
  model.addTo(fresh);
  fresh.solve();
  ASSERT_EQ(std::vector(changed.conflicts().begin(), changed.conflicts().end()),
            std::vector(fresh.conflicts().begin(), fresh.conflicts().end()));
  for (std::uint32_t i = 0; i < model.variables; ++i) {
    const double expected = fresh.value(i);
    ASSERT_NEAR(changed.value(i), expected, 1e-8 * std::fmax(1, std::fabs(expected))) << i;
  }
}

TEST(SolverChange, GivesTheSameResultAsANewSolver) {
  for (std::uint32_t seed = 0; seed < 600; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomModel model = RandomModel::make(seed);
    if (model.constraints.empty()) continue;
    Solver solver;
    model.addTo(solver);
    solver.solve();
    std::mt19937 random(seed);
    for (int step = 0; step < 20; ++step) {
      const std::uint32_t changes = 1 + RandomModel::randomBelow(random, 3);
      for (std::uint32_t i = 0; i < changes; ++i) {
        const auto index = RandomModel::randomBelow(random, static_cast<std::uint32_t>(model.constraints.size()));
        model.constraints[index].constant = RandomModel::randomConstant(random);
        solver.setConstant(index, model.constraints[index].constant);
      }
      solver.solve();
      expectSameAsNewSolver(solver, model);
      if (HasFatalFailure()) return;
    }
  }
}

// Computes the bottom edge of a container from several contents that the test moves. The position of every other
// content depends on the bottom edge.
struct ContentsModel {
  static constexpr std::uint32_t count = 6;
  Solver solver;
  std::vector<Solver::Constraint> edges;

  explicit ContentsModel(const std::vector<double>& positions) {
    const auto bottom = solver.addVariable();
    for (std::uint32_t i = 0; i < count; ++i) {
      const auto content = solver.addVariable();
      const Solver::Term edge[] = {{content, 3}, {bottom, i % 2 == 0 ? 0 : 0.1}};
      edges.push_back(solver.add(edge, -3 * positions[i], Solver::Relation::Equal, Solver::required));
      const Solver::Term padding[] = {{bottom, 1}, {content, -0.7}};
      solver.add(padding, -0.1, Solver::Relation::GreaterOrEqual, Solver::required);
    }
    const Solver::Term pull[] = {{bottom, 1}};
    solver.add(pull, 0, Solver::Relation::Equal, 50);
    solver.solve();
  }
};

TEST(SolverChange, StaysExactOverAHundredThousandChanges) {
  std::vector<double> positions(ContentsModel::count, 0);
  ContentsModel changed(positions);
  std::mt19937 random(1);
  for (int step = 0; step < 100000; ++step) {
    const std::uint32_t index = RandomModel::randomBelow(random, ContentsModel::count);
    positions[index] = RandomModel::randomBelow(random, 1000) / 7.0;
    changed.solver.setConstant(changed.edges[index], -3 * positions[index]);
    changed.solver.solve();
  }
  const ContentsModel fresh(positions);
  for (std::uint32_t i = 0; i <= ContentsModel::count; ++i) {
    EXPECT_NEAR(changed.solver.value(i), fresh.solver.value(i), 1e-12) << i;
  }
}

}  // namespace
