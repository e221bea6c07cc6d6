// A place or length in a tree of views, as a linear expression over the unknowns of its layout.
#pragma once

#include <vector>

#include "simulator/layout/solver.hpp"
#include "simulator/uikit/layout/layout_constraint.hpp"

namespace uikit {

// The four unknowns of a view that constraints place: its frame in its superview's coordinates.
struct FrameVariables {
  layout::Solver::Variable width;
  layout::Solver::Variable height;
  layout::Solver::Variable x;
  layout::Solver::Variable y;
};

struct LayoutExpression {
  std::vector<layout::Solver::Term> terms;
  double constant = 0;

  void add(layout::Solver::Variable variable, double coefficient);
  void add(const LayoutExpression& other, double factor);
};

// The unknowns of a view, null for one whose frame is fixed in its superview.
class FrameUnknowns {
 public:
  virtual const FrameVariables* of(const UIView* view) const = 0;

 protected:
  ~FrameUnknowns() = default;
};

// "terms + constant `relation` 0" in the coordinates of the constraint's holder.
LayoutExpression expressionOf(const ConstraintRecord& constraint, const FrameUnknowns& unknowns);

}  // namespace uikit
