#include "simulator/layout/solver.hpp"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

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

// Divides the coefficients by a power of two, so the largest coefficient is in [1, 2). Returns the exponent of that
// power.
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
  require(Update::SplitModel);
  return variableCount_++;
}

Solver::Constraint Solver::add(std::span<const Term> terms, double constant, Relation relation, float priority) {
  Record record{};
  record.row.priority = priority;
  record.row.relation = relation;
  record.isMalformed = !storeTerms(terms, record) || std::isnan(priority);
  record.row.constant = scaleConstant(constant, record.row.exponent);
  records_.push_back(record);
  require(Update::SplitModel);
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
  records_[constraint].isRemoved = true;
  require(Update::SplitModel);
}

void Solver::setConstant(Constraint constraint, double constant) {
  if (constraint >= records_.size()) return;
  Record& record = records_[constraint];
  if (record.isRemoved || record.isMalformed) return;
  const bool wasActive = record.isActive();
  record.row.constant = scaleConstant(constant, record.row.exponent);
  if (record.isActive() != wasActive) return require(Update::SplitModel);
  changed_.push_back(constraint);
  require(Update::Constants);
}

void Solver::solve() {
  if (update_ == Update::None) return;
  if (update_ == Update::Constants) {
    solveChanged();
  } else {
    splitAndSolve();
  }
  changed_.clear();
  update_ = Update::None;
}

double Solver::value(Variable variable) const {
  if (!sets_.contains(variable)) return 0;
  const DisjointSets::Location location = sets_.location(variable);
  const double value = subproblems_[location.set].value(location.index);
  return std::isfinite(value) ? value + 0.0 : 0;  // the addition turns a negative zero into zero
}

void Solver::clear() {
  variableCount_ = 0;
  records_.clear();
  terms_.clear();
  changed_.clear();
  conflicts_.clear();
  sets_.reset(0);
  sets_.number();
  update_ = Update::SplitModel;
}

void Solver::solveChanged() {
  bool conflictsMayChange = !conflicts_.empty();
  for (const Constraint constraint : changed_) {
    const Record& record = records_[constraint];
    subproblems_[record.location.model].setConstant(record.location.row, record.row.constant);
  }
  for (const Constraint constraint : changed_) {
    Subproblem& subproblem = subproblems_[records_[constraint].location.model];
    solve(subproblem);
    conflictsMayChange = conflictsMayChange || !subproblem.conflicts().empty();
  }
  if (conflictsMayChange) collectConflicts();
}

void Solver::splitAndSolve() {
  connectVariables();
  ModelSplitter splitter(sets_);
  for (const Record& record : records_)
    if (record.isActive()) splitter.count(termsOf(record));
  splitter.allocate();
  for (Record& record : records_)
    if (record.isActive()) record.location = splitter.append(record.row, termsOf(record));
  solveNewModels(std::exchange(subproblems_, {}), splitter.models());
  collectConflicts();
}

void Solver::connectVariables() {
  sets_.reset(variableCount_);
  for (const Record& record : records_)
    if (record.isActive()) sets_.unite(termsOf(record));
  sets_.number();
}

// Creates and solves the subproblems of the models. Reuses the solved subproblem of a model that was solved before.
void Solver::solveNewModels(std::vector<Subproblem> solved, std::span<const Model> models) {
  std::unordered_multimap<std::size_t, Subproblem*> reusable;
  reusable.reserve(solved.size());
  for (Subproblem& subproblem : solved) reusable.emplace(subproblem.model().hash(), &subproblem);
  subproblems_.reserve(models.size());
  for (const Model& model : models) {
    const auto found = reusable.find(model.hash());
    if (found != reusable.end() && found->second->model() == model) {
      subproblems_.push_back(std::move(*found->second));
      reusable.erase(found);
    } else {
      solve(subproblems_.emplace_back(model));
    }
  }
}

void Solver::solve(Subproblem& subproblem) {
  const std::size_t before = subproblem.pivotCount();
  subproblem.solve();
  pivotCount_ += subproblem.pivotCount() - before;
}

void Solver::collectConflicts() {
  conflicts_.clear();
  for (Constraint constraint = 0; constraint < records_.size(); ++constraint) {
    const Record& record = records_[constraint];
    if (record.isRemoved) continue;
    if (!record.isActive() ||
        std::ranges::binary_search(subproblems_[record.location.model].conflicts(), record.location.row))
      conflicts_.push_back(constraint);
  }
}

std::size_t Solver::cellCount() const {
  std::size_t count = 0;
  for (const Subproblem& subproblem : subproblems_) count += subproblem.cellCount();
  return count;
}

std::span<const Term> Solver::termsOf(const Record& record) const {
  return std::span(terms_).subspan(record.firstTerm, record.row.termCount);
}

bool Solver::Record::isActive() const { return !isRemoved && !isMalformed && std::isfinite(row.constant); }

}  // namespace layout
