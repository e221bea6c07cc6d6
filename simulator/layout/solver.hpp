// Solves linear constraints with priorities.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/layout/lexicographic_simplex.hpp"

namespace layout {

/// Variables are real numbers of any sign. Required constraints hold exactly; then, from the highest priority to the
/// lowest, the sum of the absolute violations of each priority's constraints is made as small as the higher ones leave
/// it. Where that leaves a choice, the variables added first are brought as near to zero as possible, one after
/// another. So the result depends on the model alone, and a variable that nothing determines is zero.
///
/// Meant for layouts: the time and memory of a solve grow with variables times constraints, whatever is empty in
/// between. A solver is a value without any shared state; it is used by one thread at a time.
class Solver {
 public:
  using Variable = std::uint32_t;    ///< numbered from 0 in order of addition
  using Constraint = std::uint32_t;  ///< numbered from 0 in order of addition; not used again after removal
  struct Term {
    Variable variable;
    double coefficient;
  };
  enum class Relation { LessOrEqual, Equal, GreaterOrEqual };
  static constexpr float required = 1000;

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

  /// Back to a new solver's state, keeping its memory for the next model.
  void clear();

 private:
  using Quantity = LexicographicSimplex::Quantity;
  enum class Start { Nothing, LastBasis, Scratch };  // what the next solve needs, in rising order
  struct Record {
    std::uint32_t firstTerm;
    std::uint32_t termCount;
    int exponent;  // coefficients and constants are stored divided by 2^exponent: the largest coefficient is in [1, 2)
    double constant;
    double solvedConstant;  // as of the last solve
    float priority;
    Relation relation;
    bool removed;
    bool malformed;
    Quantity quantity;

    bool isRequired() const { return priority >= required; }
    bool takesPart() const;
    LexicographicSimplex::Cost cost(int largestExponent) const;
  };

  bool storeTerms(std::span<const Term> terms, Record& record);
  void need(Start start) { start_ = start_ < start ? start : start_; }

  void solveFromScratch();
  void loadTableau();
  void imposeRequired();
  bool impose(const Record& record);
  bool solveFromLastBasis();
  bool imposeRequiredAtOnce();
  void collectLevels();
  void optimiseLevels();
  void optimiseLevel(std::span<const Constraint> level);
  void settleVariables();

  std::uint32_t variableCount_ = 0;
  std::vector<Record> records_;
  std::vector<Term> terms_;
  std::vector<Term> expression_;  // the one being added
  std::vector<Constraint> changed_;
  std::vector<Constraint> conflicts_;
  Start start_ = Start::Nothing;
  bool leftOut_ = false;  // a required constraint was in conflict; any change may let it back in

  LexicographicSimplex simplex_;
  std::size_t pivotsOfNewStart_ = 0;
  std::vector<Constraint> levels_;  // the optional constraints, highest priority first
  std::vector<Quantity> goal_;
};

}  // namespace layout
