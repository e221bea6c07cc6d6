// A solver with short functions for the constraints that the tests use.
#pragma once

#include <initializer_list>
#include <vector>

#include "simulator/layout/solver.hpp"

namespace layout_test {

class TestSolver : public layout::Solver {
 public:
  Constraint constrain(std::initializer_list<Term> terms, double constant, Relation relation,
                       float priority = required) {
    return add({terms.begin(), terms.size()}, constant, relation, priority);
  }
  // variable = value
  Constraint set(Variable variable, double value, float priority = required) {
    return constrain({{variable, 1}}, -value, Relation::Equal, priority);
  }
  // variable = other + distance
  Constraint follow(Variable variable, Variable other, double distance, float priority = required) {
    return constrain({{variable, 1}, {other, -1}}, -distance, Relation::Equal, priority);
  }
  Constraint atLeast(Variable variable, double value, float priority = required) {
    return constrain({{variable, 1}}, -value, Relation::GreaterOrEqual, priority);
  }
  Constraint atMost(Variable variable, double value, float priority = required) {
    return constrain({{variable, 1}}, -value, Relation::LessOrEqual, priority);
  }
  std::vector<Constraint> conflictList() const { return {conflicts().begin(), conflicts().end()}; }
};

}  // namespace layout_test
