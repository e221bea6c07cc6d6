// A linear model: constraints over numbered variables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace layout {

struct Term {
  std::uint32_t variable;
  double coefficient;

  bool operator==(const Term&) const = default;
};

enum class Relation : std::uint8_t { LessOrEqual, Equal, GreaterOrEqual };

/// The priority from which on a constraint must hold.
inline constexpr float requiredPriority = 1000;

/// The constraint "sum of the terms + constant `relation` 0".
struct Row {
  double constant = 0;
  std::uint32_t termCount = 0;
  int exponent = 0;  // coefficients and constant are divided by 2^exponent: the largest coefficient is in [1, 2)
  float priority = 0;
  Relation relation = Relation::Equal;

  bool isRequired() const { return priority >= requiredPriority; }
  bool operator==(const Row&) const = default;
};

/// Borrowed. The terms are those of the first row, then those of the second, and so on.
struct Model {
  std::uint32_t variables = 0;
  std::span<const Row> rows;
  std::span<const Term> terms;

  bool operator==(const Model& other) const;
  std::size_t hash() const;
};

}  // namespace layout
