// The simplex dictionary: every basic quantity as a linear function of the nonbasic ones, which are all zero.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace layout {

/// Quantities are numbered: first the variables, then one for each constraint (the value of its expression).
/// There are always as many nonbasic quantities as there are variables.
class Tableau {
 public:
  using Quantity = std::uint32_t;

  /// Starts over: all variables nonbasic, all constraints basic with empty expressions.
  void reset(std::size_t variables, std::size_t constraints);

  std::size_t rows() const { return basic_.size(); }
  std::size_t columns() const { return nonbasic_.size(); }
  bool isVariable(Quantity quantity) const { return quantity < columns(); }

  Quantity basic(std::size_t row) const { return basic_[row]; }
  Quantity nonbasic(std::size_t column) const { return nonbasic_[column]; }
  bool isBasic(Quantity quantity) const { return places_[quantity].basic; }
  /// The quantity's row if it is basic, else its column.
  std::size_t position(Quantity quantity) const { return places_[quantity].position; }

  double* row(std::size_t row) { return cells_.data() + row * stride(); }
  const double* row(std::size_t row) const { return cells_.data() + row * stride(); }
  double& constant(std::size_t row) { return cells_[row * stride() + columns()]; }
  double constant(std::size_t row) const { return cells_[row * stride() + columns()]; }
  double value(Quantity quantity) const { return isBasic(quantity) ? constant(position(quantity)) : 0; }

  /// Exchanges the basic quantity of the row with the nonbasic one of the column; their coefficient is not zero.
  void pivot(std::size_t row, std::size_t column);

  /// Adds to the constant of a constraint's expression. All nonbasic quantities stay zero.
  void shift(Quantity constraint, double difference);

 private:
  struct Place {
    std::uint32_t position;
    bool basic;
  };

  // The last cell of a row is its constant, so that a pivot treats it like any coefficient.
  std::size_t stride() const { return columns() + 1; }
  void addMultiple(double* target, double factor, const double* source) const;

  std::vector<double> cells_;
  std::vector<Quantity> basic_;
  std::vector<Quantity> nonbasic_;
  std::vector<Place> places_;
  std::vector<std::uint32_t> pattern_;  // columns with a value in the row of the pivot in progress
};

}  // namespace layout
