// Expresses positions and lengths of views as linear expressions in the variables of the layout solver.
#pragma once

#include <vector>

#include "simulator/layout/solver.hpp"
#include "simulator/uikit/layout/layout_constraint.hpp"

namespace uikit {

// The variables of a view whose frame is determined by constraints. They represent the frame in the superview's
// coordinates.
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

// Maps a view to its variables. The result is null if constraints do not determine the frame of the view.
class FrameVariableSource {
 public:
  virtual const FrameVariables* of(const UIView* view) const = 0;

 protected:
  ~FrameVariableSource() = default;
};

// Returns the left side of an equivalent constraint "terms + constant `relation` 0". The given constraint must be
// active. Positions are in the coordinates of the constraint's holder.
LayoutExpression expressionOf(const ConstraintRecord& constraint, const FrameVariableSource& source);

}  // namespace uikit
