// A linear model: linear constraints over numbered variables.
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

// The minimum priority of a required constraint.
inline constexpr float requiredPriority = 1000;

// The constraint "sum of the terms + constant `relation` 0". The coefficients and the constant are multiplied by
// 2^-exponent, so the largest coefficient is in [1, 2).
struct Row {
  double constant = 0;
  std::uint32_t termCount = 0;
  int exponent = 0;
  float priority = 0;
  Relation relation = Relation::Equal;

  bool isRequired() const { return priority >= requiredPriority; }
  bool operator==(const Row&) const = default;
};

// A view of rows and terms that the caller owns. The terms of the first row come first. The terms of the second row
// follow, and so on.
struct Model {
  std::uint32_t variables = 0;
  std::span<const Row> rows;
  std::span<const Term> terms;

  bool operator==(const Model& other) const;
  std::size_t hash() const;
};

}  // namespace layout
