// Solves linear constraints with priorities.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/disjoint_sets.hpp"
#include "simulator/layout/model.hpp"
#include "simulator/layout/subproblem.hpp"

namespace layout {

/// Variables are real numbers of any sign. Required constraints hold exactly; then, from the highest priority to the
/// lowest, the sum of the absolute violations of each priority's constraints is made as small as the higher ones leave
/// it. Where that leaves a choice, the variables added first are brought as near to zero as possible, one after
/// another. So the result depends on the model alone, and a variable that nothing determines is zero.
///
/// Meant for layouts: what no constraint ties together is solved apart, and again only when it changes. The time and
/// memory of a solve grow with variables times constraints of each such part, whatever is empty in between. A solver is
/// a value without any shared state; it is used by one thread at a time.
class Solver {
 public:
  using Variable = std::uint32_t;    ///< numbered from 0 in order of addition
  using Constraint = std::uint32_t;  ///< numbered from 0 in order of addition; not used again after removal
  using Term = layout::Term;
  using Relation = layout::Relation;
  static constexpr float required = requiredPriority;

  Variable addVariable();

  /// The constraint "sum of the terms + constant `relation` 0". Terms of the same variable are added up. Priorities
  /// from `required` on are required. A constraint with a number that is not finite, an unknown variable or a priority
  /// that is no number has no effect and is listed among the conflicts. A constant is limited to
  /// about ten million times the largest coefficient, so that a sentinel does not cost the others their precision.
  Constraint add(std::span<const Term> terms, double constant, Relation relation, float priority);

  /// Ids that are unknown or removed are ignored, here and in `setConstant`.
  void remove(Constraint constraint);

  /// The next solve goes on from the last result, which is far cheaper than a new start.
  void setConstant(Constraint constraint, double constant);

  /// Values and conflicts are those of the last solve until the next.
  void solve();

  /// Zero for an unknown variable.
  double value(Variable variable) const;

  /// The constraints left out of the last solve, in order of addition: the malformed ones, and each required one that
  /// contradicts the required ones before it. Valid until the next solve.
  std::span<const Constraint> conflicts() const { return conflicts_; }

  /// Back to a new solver's state. A part of the next model that was in this one too is not solved again.
  void clear();

  /// The pivots of all solves so far, and the cells of all tableaus as they are: the measures of time and memory.
  std::size_t pivotCount() const { return pivotCount_; }
  std::size_t cellCount() const;

 private:
  using Place = DisjointSets::Place;
  enum class Start { Nothing, LastBasis, DisjointSets };  // what the next solve needs, in rising order
  struct Record {
    Row row;
    std::uint32_t firstTerm;
    bool removed;
    bool malformed;
    Place place;  // its part, and its row there

    bool takesPart() const;
  };
  bool storeTerms(std::span<const Term> terms, Record& record);
  std::span<const Term> termsOf(const Record& record) const;
  void need(Start start) { start_ = start_ < start ? start : start_; }

  void solveChanged();
  void solveAnew();
  void tieVariables();
  void takeOver(std::vector<Subproblem> solved, std::span<const Model> models);
  void solve(Subproblem& part);
  void collectConflicts();

  std::uint32_t variableCount_ = 0;
  std::vector<Record> records_;
  std::vector<Term> terms_;
  std::vector<Term> expression_;  // the one being added
  std::vector<Constraint> changed_;
  std::vector<Constraint> conflicts_;
  Start start_ = Start::Nothing;

  DisjointSets sets_;
  std::vector<Subproblem> parts_;
  std::size_t pivotCount_ = 0;
};

}  // namespace layout
