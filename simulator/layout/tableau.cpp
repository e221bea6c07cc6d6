#include "simulator/layout/tableau.hpp"

#include <cmath>
#include <utility>

namespace layout {
namespace {

// The tolerance for rounding errors. A sum is treated as zero if it is smaller than its operands by this factor.
constexpr double cancellationTolerance = 1e-12;

}  // namespace

void Tableau::reset(std::size_t variables, std::size_t constraints) {
  basic_.resize(constraints);
  nonbasic_.resize(variables);
  positions_.resize(variables + constraints);
  for (std::uint32_t column = 0; column < variables; ++column) {
    nonbasic_[column] = column;
    positions_[column] = {column, false};
  }
  for (std::uint32_t row = 0; row < constraints; ++row) {
    basic_[row] = static_cast<Quantity>(variables) + row;
    positions_[basic_[row]] = {row, true};
  }
  cells_.assign(constraints * stride(), 0);
}

void Tableau::pivot(std::size_t row, std::size_t column) {
  double* source = this->row(row);
  const double reciprocal = 1 / source[column];
  source[column] = 0;
  nonzeroColumns_.clear();
  for (std::uint32_t index = 0; index < stride(); ++index) {
    if (source[index] == 0) continue;
    source[index] *= -reciprocal;
    nonzeroColumns_.push_back(index);
  }
  for (std::size_t other = 0; other < rows(); ++other) {
    double* target = this->row(other);
    const double factor = target[column];
    if (factor == 0 || other == row) continue;
    target[column] = factor * reciprocal;
    addMultiple(target, factor, source);
  }
  source[column] = reciprocal;

  std::swap(basic_[row], nonbasic_[column]);
  positions_[basic_[row]] = {static_cast<std::uint32_t>(row), true};
  positions_[nonbasic_[column]] = {static_cast<std::uint32_t>(column), false};
}

void Tableau::addMultiple(double* target, double factor, const double* source) const {
  for (const std::uint32_t index : nonzeroColumns_) {
    const double addend = factor * source[index];
    const double sum = target[index] + addend;
    target[index] = std::abs(sum) <= cancellationTolerance * std::abs(addend) ? 0 : sum;
  }
}

void Tableau::shift(Quantity constraint, double difference) {
  if (isBasic(constraint)) {
    constant(position(constraint)) += difference;
    return;
  }
  const std::size_t column = position(constraint);
  for (std::size_t row = 0; row < rows(); ++row) constant(row) -= difference * this->row(row)[column];
}

}  // namespace layout
