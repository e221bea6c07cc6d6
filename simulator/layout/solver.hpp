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

// Variables are real numbers of any sign. Required constraints hold exactly. Then, from the highest priority to the
// lowest, the sum of the absolute violations of all constraints of a priority is minimized, as far as the constraints
// of higher priorities allow. If several solutions remain, the absolute value of each variable is minimized, in order
// of addition. The result therefore depends on the model only, and a variable without constraints is zero.
//
// The solver is optimized for layouts. It splits the model into independent subproblems, which are the connected
// components of variables and constraints, and solves a subproblem again only if it changes. The time and memory of a
// subproblem grow with the product of its variables and constraints. A solver has no shared state. It is used by one
// thread at a time.
class Solver {
 public:
  using Variable = std::uint32_t;    // numbered from 0 in order of addition
  using Constraint = std::uint32_t;  // numbered from 0 in order of addition; the number of a removed one is not reused
  using Term = layout::Term;
  using Relation = layout::Relation;
  static constexpr float required = requiredPriority;

  Variable addVariable();

  // Adds the constraint "sum of the terms + constant `relation` 0". Terms of the same variable are added up. A
  // constraint with a priority of `required` or higher must hold. A constraint has no effect and is listed as a
  // conflict if it contains a number that is not finite or an unknown variable, or if its priority is NaN. The absolute
  // value of a constant is limited to about ten million times the largest coefficient, because larger values, such as
  // sentinels, would reduce the precision of other constraints.
  Constraint add(std::span<const Term> terms, double constant, Relation relation, float priority);

  // Ignores an unknown or removed constraint, as setConstant does.
  void remove(Constraint constraint);

  // Changes the constant of a constraint. Solving after such changes is much faster than after an addition or removal,
  // because it starts from the last result.
  void setConstant(Constraint constraint, double constant);

  // Computes the values and conflicts. They do not change until the next call.
  void solve();

  // The value of the variable after the last solve; zero for an unknown variable.
  double value(Variable variable) const;

  // The constraints that the last solve ignored, in order of addition: malformed ones, and each required one that
  // contradicts required ones before it. Valid until the next solve.
  std::span<const Constraint> conflicts() const { return conflicts_; }

  // Removes all variables and constraints. Solved subproblems that occur again in the next model are not solved again.
  void clear();

  // Measures of time and memory: the number of pivots of all solves, and the current number of cells of all tableaus.
  std::size_t pivotCount() const { return pivotCount_; }
  std::size_t cellCount() const;

 private:
  // What the next solve must do, in ascending order of cost.
  enum class Update { None, Constants, SplitModel };
  struct Record {
    Row row;
    std::uint32_t firstTerm;
    bool isRemoved;
    bool isMalformed;
    ModelSplitter::RowLocation location;  // its subproblem, and its row there

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
  std::vector<Term> expression_;  // of the constraint that is being added
  std::vector<Constraint> changed_;
  std::vector<Constraint> conflicts_;
  Update update_ = Update::None;

  DisjointSets sets_;
  std::vector<Subproblem> subproblems_;
  std::size_t pivotCount_ = 0;
};

}  // namespace layout
