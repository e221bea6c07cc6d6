#include "simulator/layout/solver.hpp"

#include <algorithm>
#include <cmath>

namespace layout {
namespace {

// A required constraint that is off by no more than this holds: far less than can be seen on a screen, and more than
// rounding makes of the largest constants.
constexpr double tolerance = 1e-6;
constexpr double largestConstant = 1e7;
constexpr double negligibleCoefficient = 1e-12;
// Each pivot rounds; after so many of them in changes the basis is computed anew.
constexpr std::size_t pivotsBeforeNewStart = 1000;

void mergeTermsOfSameVariable(std::vector<Solver::Term>& terms) {
  std::sort(terms.begin(), terms.end(), [](const auto& a, const auto& b) { return a.variable < b.variable; });
  std::size_t count = 0;
  for (const Solver::Term& term : terms) {
    if (count > 0 && terms[count - 1].variable == term.variable) {
      terms[count - 1].coefficient += term.coefficient;
    } else {
      terms[count++] = term;
    }
  }
  terms.resize(count);
}

// Divides by the power of two that brings the largest coefficient into [1, 2) and returns its exponent.
int scaleTerms(std::vector<Solver::Term>& terms) {
  double largest = 0;
  for (const Solver::Term& term : terms) largest = std::max(largest, std::abs(term.coefficient));
  const int exponent = largest > 0 ? std::ilogb(largest) : 0;
  if (exponent != 0) {
    for (Solver::Term& term : terms) term.coefficient = std::scalbn(term.coefficient, -exponent);
  }
  std::erase_if(terms, [](const Solver::Term& term) { return std::abs(term.coefficient) < negligibleCoefficient; });
  return exponent;
}

double scaleConstant(double constant, int exponent) {
  if (!std::isfinite(constant)) return constant;
  return std::clamp(std::scalbn(constant, -exponent), -largestConstant, largestConstant);
}

}  // namespace

Solver::Variable Solver::addVariable() {
  need(Start::Scratch);
  return variableCount_++;
}

Solver::Constraint Solver::add(std::span<const Term> terms, double constant, Relation relation, float priority) {
  Record record{};
  record.priority = priority;
  record.relation = relation;
  record.malformed = !storeTerms(terms, record) || std::isnan(priority);
  record.constant = scaleConstant(constant, record.exponent);
  records_.push_back(record);
  need(Start::Scratch);
  return static_cast<Constraint>(records_.size() - 1);
}

bool Solver::storeTerms(std::span<const Term> terms, Record& record) {
  expression_.assign(terms.begin(), terms.end());
  mergeTermsOfSameVariable(expression_);
  for (const Term& term : expression_) {
    if (term.variable >= variableCount_ || !std::isfinite(term.coefficient)) return false;
  }
  record.exponent = scaleTerms(expression_);
  record.firstTerm = static_cast<std::uint32_t>(terms_.size());
  record.termCount = static_cast<std::uint32_t>(expression_.size());
  terms_.insert(terms_.end(), expression_.begin(), expression_.end());
  return true;
}

void Solver::remove(Constraint constraint) {
  if (constraint >= records_.size()) return;
  records_[constraint].removed = true;
  need(Start::Scratch);
}

void Solver::setConstant(Constraint constraint, double constant) {
  if (constraint >= records_.size()) return;
  Record& record = records_[constraint];
  if (record.removed || record.malformed) return;
  const bool tookPart = record.takesPart();
  record.constant = scaleConstant(constant, record.exponent);
  if (record.takesPart() != tookPart) return need(Start::Scratch);
  changed_.push_back(constraint);
  need(Start::LastBasis);
}

void Solver::solve() {
  if (start_ == Start::Nothing) return;
  const bool isExact = simplex_.pivotCount() - pivotsOfNewStart_ < pivotsBeforeNewStart;
  const bool canGoOn = start_ == Start::LastBasis && !leftOut_ && isExact;
  if (!canGoOn || !solveFromLastBasis()) solveFromScratch();
  changed_.clear();
  start_ = Start::Nothing;
}

double Solver::value(Variable variable) const {
  const Tableau& tableau = simplex_.tableau();
  if (variable >= tableau.columns()) return 0;
  const double value = tableau.value(variable);
  return std::isfinite(value) ? value + 0.0 : 0;  // never a negative zero
}

void Solver::clear() {
  variableCount_ = 0;
  records_.clear();
  terms_.clear();
  changed_.clear();
  conflicts_.clear();
  start_ = Start::Nothing;
  simplex_.reset(0, 0);
}

void Solver::solveFromScratch() {
  loadTableau();
  imposeRequired();
  collectLevels();
  optimiseLevels();
  settleVariables();
  pivotsOfNewStart_ = simplex_.pivotCount();
}

void Solver::loadTableau() {
  Quantity next = variableCount_;
  for (Record& record : records_) {
    if (record.takesPart()) record.quantity = next++;
  }
  simplex_.reset(variableCount_, next - variableCount_);
  Tableau& tableau = simplex_.tableau();
  for (Record& record : records_) {
    if (!record.takesPart()) continue;
    const std::size_t row = tableau.position(record.quantity);
    for (const Term& term : std::span(terms_).subspan(record.firstTerm, record.termCount)) {
      tableau.row(row)[term.variable] = term.coefficient;
    }
    tableau.constant(row) = record.solvedConstant = record.constant;
  }
}

void Solver::imposeRequired() {
  conflicts_.clear();
  leftOut_ = false;
  for (Constraint constraint = 0; constraint < records_.size(); ++constraint) {
    const Record& record = records_[constraint];
    if (record.removed) continue;
    if (!record.takesPart()) {
      conflicts_.push_back(constraint);
    } else if (record.isRequired() && !impose(record)) {
      conflicts_.push_back(constraint);
      leftOut_ = true;
    }
  }
}

bool Solver::impose(const Record& record) {
  const std::span goal(&record.quantity, 1);
  simplex_.setCost(record.quantity, record.cost(record.exponent));
  const bool holds =
      simplex_.absorb(record.quantity) || simplex_.cost(goal) <= tolerance || simplex_.minimise(goal) <= tolerance;
  if (holds) {
    simplex_.keepZero(goal);
  } else {
    simplex_.abandon(record.quantity);
  }
  return holds;
}

bool Solver::solveFromLastBasis() {
  for (const Constraint constraint : changed_) {
    Record& record = records_[constraint];
    simplex_.tableau().shift(record.quantity, record.constant - record.solvedConstant);
    record.solvedConstant = record.constant;
  }
  if (simplex_.isFeasible()) return true;
  simplex_.release();
  if (!imposeRequiredAtOnce()) return false;
  optimiseLevels();
  settleVariables();
  return true;
}

bool Solver::imposeRequiredAtOnce() {
  goal_.clear();
  for (const Record& record : records_) {
    if (record.takesPart() && record.isRequired()) goal_.push_back(record.quantity);
  }
  if (simplex_.minimise(goal_) > tolerance) return false;
  simplex_.keepZero(goal_);
  return true;
}

void Solver::collectLevels() {
  levels_.clear();
  for (Constraint constraint = 0; constraint < records_.size(); ++constraint) {
    const Record& record = records_[constraint];
    if (record.takesPart() && !record.isRequired()) levels_.push_back(constraint);
  }
  std::sort(levels_.begin(), levels_.end(), [&](Constraint a, Constraint b) {
    return records_[a].priority != records_[b].priority ? records_[a].priority > records_[b].priority : a < b;
  });
}

void Solver::optimiseLevels() {
  auto begin = levels_.begin();
  while (begin != levels_.end() && !simplex_.isDetermined()) {
    const float priority = records_[*begin].priority;
    const auto end =
        std::find_if(begin, levels_.end(), [&](Constraint next) { return records_[next].priority != priority; });
    optimiseLevel({begin, end});
    begin = end;
  }
}

void Solver::optimiseLevel(std::span<const Constraint> level) {
  int largestExponent = records_[level.front()].exponent;
  for (const Constraint constraint : level) largestExponent = std::max(largestExponent, records_[constraint].exponent);
  goal_.clear();
  for (const Constraint constraint : level) {
    const Record& record = records_[constraint];
    simplex_.setCost(record.quantity, record.cost(largestExponent));
    goal_.push_back(record.quantity);
  }
  simplex_.minimise(goal_);
  simplex_.keepOptimum(goal_);
}

void Solver::settleVariables() {
  for (Quantity variable = 0; variable < variableCount_ && !simplex_.isDetermined(); ++variable) {
    const std::span goal(&variable, 1);
    simplex_.setCost(variable, {1, 1});
    simplex_.minimise(goal);
    simplex_.keepOptimum(goal);
  }
}

bool Solver::Record::takesPart() const { return !removed && !malformed && std::isfinite(constant); }

// Violations count in the constraint's own units, relative to the largest unit of its level.
LexicographicSimplex::Cost Solver::Record::cost(int largestExponent) const {
  const double unit = exponent == largestExponent ? 1 : std::scalbn(1.0, exponent - largestExponent);
  return {relation == Relation::LessOrEqual ? 0 : unit, relation == Relation::GreaterOrEqual ? 0 : unit};
}

}  // namespace layout
