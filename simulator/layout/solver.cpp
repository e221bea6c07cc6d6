#include "simulator/layout/solver.hpp"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "simulator/layout/model_splitter.hpp"

namespace layout {
namespace {

constexpr double maxConstant = 1e7;
constexpr double negligibleCoefficient = 1e-12;

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
  return std::clamp(std::scalbn(constant, -exponent), -maxConstant, maxConstant);
}

}  // namespace

Solver::Variable Solver::addVariable() {
  need(Start::DisjointSets);
  return variableCount_++;
}

Solver::Constraint Solver::add(std::span<const Term> terms, double constant, Relation relation, float priority) {
  Record record{};
  record.row.priority = priority;
  record.row.relation = relation;
  record.malformed = !storeTerms(terms, record) || std::isnan(priority);
  record.row.constant = scaleConstant(constant, record.row.exponent);
  records_.push_back(record);
  need(Start::DisjointSets);
  return static_cast<Constraint>(records_.size() - 1);
}

bool Solver::storeTerms(std::span<const Term> terms, Record& record) {
  expression_.assign(terms.begin(), terms.end());
  mergeTermsOfSameVariable(expression_);
  for (const Term& term : expression_) {
    if (term.variable >= variableCount_ || !std::isfinite(term.coefficient)) return false;
  }
  record.row.exponent = scaleTerms(expression_);
  record.row.termCount = static_cast<std::uint32_t>(expression_.size());
  record.firstTerm = static_cast<std::uint32_t>(terms_.size());
  terms_.insert(terms_.end(), expression_.begin(), expression_.end());
  return true;
}

void Solver::remove(Constraint constraint) {
  if (constraint >= records_.size()) return;
  records_[constraint].removed = true;
  need(Start::DisjointSets);
}

void Solver::setConstant(Constraint constraint, double constant) {
  if (constraint >= records_.size()) return;
  Record& record = records_[constraint];
  if (record.removed || record.malformed) return;
  const bool tookPart = record.takesPart();
  record.row.constant = scaleConstant(constant, record.row.exponent);
  if (record.takesPart() != tookPart) return need(Start::DisjointSets);
  changed_.push_back(constraint);
  need(Start::LastBasis);
}

void Solver::solve() {
  if (start_ == Start::Nothing) return;
  if (start_ == Start::LastBasis) {
    solveChanged();
  } else {
    solveAnew();
  }
  changed_.clear();
  start_ = Start::Nothing;
}

double Solver::value(Variable variable) const {
  if (!sets_.contains(variable)) return 0;
  const Place place = sets_.place(variable);
  const double value = parts_[place.part].value(place.index);
  return std::isfinite(value) ? value + 0.0 : 0;  // never a negative zero
}

void Solver::clear() {
  variableCount_ = 0;
  records_.clear();
  terms_.clear();
  changed_.clear();
  conflicts_.clear();
  sets_.reset(0);
  sets_.number();
  start_ = Start::DisjointSets;  // which lets go of the parts
}

void Solver::solveChanged() {
  bool namesConflicts = !conflicts_.empty();
  for (const Constraint constraint : changed_) {
    const Record& record = records_[constraint];
    parts_[record.place.part].setConstant(record.place.index, record.row.constant);
  }
  for (const Constraint constraint : changed_) {
    Subproblem& part = parts_[records_[constraint].place.part];
    solve(part);
    namesConflicts = namesConflicts || !part.conflicts().empty();
  }
  if (namesConflicts) collectConflicts();
}

void Solver::solveAnew() {
  tieVariables();
  ModelSplitter division(sets_);
  for (const Record& record : records_)
    if (record.takesPart()) division.count(termsOf(record));
  division.allocate();
  for (Record& record : records_)
    if (record.takesPart()) record.place = division.append(record.row, termsOf(record));
  takeOver(std::exchange(parts_, {}), division.models());
  collectConflicts();
}

void Solver::tieVariables() {
  sets_.reset(variableCount_);
  for (const Record& record : records_)
    if (record.takesPart()) sets_.unite(termsOf(record));
  sets_.number();
}

// Of the parts that were solved, those of the same model are used again.
void Solver::takeOver(std::vector<Subproblem> solved, std::span<const Model> models) {
  std::unordered_multimap<std::size_t, Subproblem*> usable;
  usable.reserve(solved.size());
  for (Subproblem& part : solved) usable.emplace(part.model().hash(), &part);
  parts_.reserve(models.size());
  for (const Model& model : models) {
    const auto found = usable.find(model.hash());
    if (found != usable.end() && found->second->model() == model) {
      parts_.push_back(std::move(*found->second));
      usable.erase(found);
    } else {
      solve(parts_.emplace_back(model));
    }
  }
}

void Solver::solve(Subproblem& part) {
  const std::size_t before = part.pivotCount();
  part.solve();
  pivotCount_ += part.pivotCount() - before;
}

void Solver::collectConflicts() {
  conflicts_.clear();
  for (Constraint constraint = 0; constraint < records_.size(); ++constraint) {
    const Record& record = records_[constraint];
    if (record.removed) continue;
    if (!record.takesPart() || std::ranges::binary_search(parts_[record.place.part].conflicts(), record.place.index))
      conflicts_.push_back(constraint);
  }
}

std::size_t Solver::cellCount() const {
  std::size_t count = 0;
  for (const Subproblem& part : parts_) count += part.cellCount();
  return count;
}

std::span<const Term> Solver::termsOf(const Record& record) const {
  return std::span(terms_).subspan(record.firstTerm, record.row.termCount);
}

bool Solver::Record::takesPart() const { return !removed && !malformed && std::isfinite(row.constant); }

}  // namespace layout
