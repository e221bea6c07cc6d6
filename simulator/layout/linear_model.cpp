#include "simulator/layout/linear_model.hpp"

#include <algorithm>
#include <functional>

namespace layout {
namespace {

class Hash {
 public:
  template <class Value>
  void add(Value value) {
    constexpr std::size_t oddNumber = 0x9E3779B97F4A7C15;
    sum_ = (sum_ ^ std::hash<Value>{}(value)) * oddNumber;
    sum_ ^= sum_ >> 32;
  }
  std::size_t sum() const { return sum_; }

 private:
  std::size_t sum_ = 0;
};

}  // namespace

bool Model::operator==(const Model& other) const {
  return variables == other.variables && std::ranges::equal(rows, other.rows) && std::ranges::equal(terms, other.terms);
}

std::size_t Model::hash() const {
  Hash hash;
  hash.add(variables);
  for (const Row& row : rows) {
    hash.add(row.constant);
    hash.add(row.priority);
    hash.add(row.relation);
  }
  for (const Term& term : terms) {
    hash.add(term.variable);
    hash.add(term.coefficient);
  }
  return hash.sum();
}

}  // namespace layout
