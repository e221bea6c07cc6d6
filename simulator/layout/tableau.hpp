// The simplex tableau. It expresses each basic quantity as a linear function of the nonbasic quantities, whose values
// are all zero.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace layout {

// The quantities are the variables and the values of the constraints' expressions. The variables are numbered from 0,
// and the constraints follow. The number of nonbasic quantities always equals the number of variables. Used by one
// thread at a time.
class Tableau {
 public:
  using Quantity = std::uint32_t;

  // Makes all variables nonbasic, and all constraints basic with empty expressions.
  void reset(std::size_t variables, std::size_t constraints);

  std::size_t rows() const { return basic_.size(); }
  std::size_t columns() const { return nonbasic_.size(); }
  bool isVariable(Quantity quantity) const { return quantity < columns(); }

  Quantity basic(std::size_t row) const { return basic_[row]; }
  Quantity nonbasic(std::size_t column) const { return nonbasic_[column]; }
  bool isBasic(Quantity quantity) const { return positions_[quantity].basic; }
  // The row of a basic quantity, or the column of a nonbasic quantity.
  std::size_t position(Quantity quantity) const { return positions_[quantity].position; }

  double* row(std::size_t row) { return cells_.data() + row * stride(); }
  const double* row(std::size_t row) const { return cells_.data() + row * stride(); }
  double& constant(std::size_t row) { return cells_[row * stride() + columns()]; }
  double constant(std::size_t row) const { return cells_[row * stride() + columns()]; }
  double value(Quantity quantity) const { return isBasic(quantity) ? constant(position(quantity)) : 0; }

  // Exchanges the basic quantity of the row with the nonbasic quantity of the column. The coefficient at the row and
  // column must not be zero.
  void pivot(std::size_t row, std::size_t column);

  // Adds the difference to the constant of a constraint's expression. All nonbasic quantities remain zero.
  void shift(Quantity constraint, double difference);

 private:
  struct Position {
    std::uint32_t position;
    bool basic;
  };

  // The number of cells in a row. The last cell is the constant of the row, because pivoting then treats it like a
  // coefficient.
  std::size_t stride() const { return columns() + 1; }
  void addMultiple(double* target, double factor, const double* source) const;

  std::vector<double> cells_;
  std::vector<Quantity> basic_;
  std::vector<Quantity> nonbasic_;
  std::vector<Position> positions_;
  std::vector<std::uint32_t> nonzeroColumns_;  // the nonzero columns of the row that is being pivoted
};

}  // namespace layout
