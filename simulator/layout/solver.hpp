// Solves systems of linear constraints with priorities. This is the solver of the view layout.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/disjoint_sets.hpp"
#include "simulator/layout/linear_model.hpp"
#include "simulator/layout/model_splitter.hpp"
#include "simulator/layout/subproblem.hpp"

namespace layout {

// Variables are real numbers of any sign. Required constraints hold exactly. The solver then processes each priority,
// from the highest to the lowest: it minimizes the sum of the absolute violations of its constraints, as far as the
// constraints of higher priorities allow. If several solutions remain, the solver minimizes the absolute value of each
// variable, in the order in which the variables were added. Therefore, the result depends only on the model, and a
// variable without constraints is zero.
//
// The solver is optimized for layouts. It splits the model into independent subproblems, which are the connected
// components of variables and constraints. It solves a subproblem again only if the subproblem has changed. The time
// and memory for a subproblem are proportional to its number of variables times its number of constraints. A solver has
// no shared state. It is used by one thread at a time.
class Solver {
 public:
  using Variable = std::uint32_t;    // numbered from 0 in order of addition
  using Constraint = std::uint32_t;  // numbered from 0 in order of addition; a number is never reused
  using Term = layout::Term;
  using Relation = layout::Relation;
  static constexpr float required = requiredPriority;

  Variable addVariable();

  // Adds the constraint "sum of the terms + constant `relation` 0". Terms of the same variable are added together. A
  // constraint with a priority of `required` or higher must hold. If a constraint contains an unknown variable or a
  // number that is not finite, or if its priority is NaN, it has no effect and is listed as a conflict. The absolute
  // value of a constant is limited to about ten million times the largest coefficient, because larger values, such as
  // sentinels, would reduce the precision of other constraints.
  Constraint add(std::span<const Term> terms, double constant, Relation relation, float priority);

  // Removes a constraint. Ignores an unknown or removed constraint.
  void remove(Constraint constraint);

  // Changes the constant of a constraint. Ignores an unknown or removed constraint. Solving after this change is much
  // faster than after an addition or removal, because it starts from the last result.
  void setConstant(Constraint constraint, double constant);

  // Computes the values and conflicts, which do not change until the next call.
  void solve();

  // Returns the value of the variable after the last solve. The value of an unknown variable is zero.
  double value(Variable variable) const;

  // The constraints that the last solve ignored, in order of addition. These are malformed constraints, and required
  // constraints that contradict required constraints before them. Valid until the next solve.
  std::span<const Constraint> conflicts() const { return conflicts_; }

  // Removes all variables and constraints. The solved subproblems are cached. A subproblem that occurs again in the
  // next model is not solved again.
  void clear();

  // The computational cost: the number of pivots in all solves, and the current number of cells in all tableaus.
  std::size_t pivotCount() const { return pivotCount_; }
  std::size_t cellCount() const;

 private:
  // The work that the next solve must do, in ascending order of cost.
  enum class Update { None, Constants, SplitModel };
  struct Record {
    Row row;
    std::uint32_t firstTerm;
    bool isRemoved;
    bool isMalformed;
    ModelSplitter::RowLocation location;  // the subproblem of the constraint, and its row in the subproblem

    bool isActive() const;
  };
  bool storeTerms(std::span<const Term> terms, Record& record);
  std::span<const Term> termsOf(const Record& record) const;
  void require(Update update) { update_ = update_ < update ? update : update_; }

  void solveChanged();
  void splitAndSolve();
  void connectVariables();
  void solveNewModels(std::vector<Subproblem> solved, std::span<const Model> models);
  void solve(Subproblem& subproblem);
  void collectConflicts();

  std::uint32_t variableCount_ = 0;
  std::vector<Record> records_;
  std::vector<Term> terms_;
  std::vector<Term> expression_;  // the terms of the constraint that is being added
  std::vector<Constraint> changed_;
  std::vector<Constraint> conflicts_;
  Update update_ = Update::None;

  DisjointSets sets_;
  std::vector<Subproblem> subproblems_;
  std::size_t pivotCount_ = 0;
};

}  // namespace layout
