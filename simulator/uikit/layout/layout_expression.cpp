#include "simulator/uikit/layout/layout_expression.hpp"

#include <algorithm>

#include "simulator/uikit/views/view_geometry.hpp"

namespace uikit {

void LayoutExpression::add(layout::Solver::Variable variable, double coefficient) {
  for (layout::Solver::Term& term : terms) {
    if (term.variable != variable) continue;
    term.coefficient += coefficient;
    return;
  }
  terms.push_back({variable, coefficient});
}

void LayoutExpression::add(const LayoutExpression& other, double factor) {
  for (const layout::Solver::Term& term : other.terms) add(term.variable, factor * term.coefficient);
  constant += factor * other.constant;
}

namespace {

// The members of geometry types that differ between the horizontal and the vertical axis.
struct Axis {
  double CGPoint::*position;
  double CGSize::*length;
  layout::Solver::Variable FrameVariables::*positionVariable;
  layout::Solver::Variable FrameVariables::*lengthVariable;
  AxisMask (*mask)(NSUInteger);
};
constexpr Axis horizontal = {&CGPoint::x, &CGSize::width, &FrameVariables::x, &FrameVariables::width, &horizontalMask};
constexpr Axis vertical = {&CGPoint::y, &CGSize::height, &FrameVariables::y, &FrameVariables::height, &verticalMask};

class ExpressionBuilder {
 public:
  ExpressionBuilder(const Axis& axis, const FrameVariableSource& source) : axis_(axis), variables_(source) {}

  LayoutExpression length(const UIView* view) const {
    LayoutExpression result;
    if (const FrameVariables* variables = variables_.of(view)) {
      result.add(variables->*axis_.lengthVariable, 1);
      return result;
    }
    result.constant = lengthNow(view);
    result.add(superviewGrowth(view), fractions(view).length);
    return result;
  }

  // Returns the left or top edge of the view in the coordinates of an ancestor. The view itself counts as an ancestor.
  LayoutExpression start(const UIView* view, const UIView* ancestor) const {
    LayoutExpression result;
    result.constant = record(view).layer.bounds.model().origin.*axis_.position;
    for (const UIView* each = view; each != ancestor; each = record(each).superview) {
      result.add(position(each), 1);
      result.constant -= record(each).layer.bounds.model().origin.*axis_.position;
    }
    return result;
  }

 private:
  double lengthNow(const UIView* view) const { return record(view).layer.bounds.model().size.*axis_.length; }

  LayoutExpression position(const UIView* view) const {
    LayoutExpression result;
    if (const FrameVariables* variables = variables_.of(view)) {
      result.add(variables->*axis_.positionVariable, 1);
      return result;
    }
    result.constant = record(view).layer.origin.model().*axis_.position;
    result.add(superviewGrowth(view), fractions(view).position);
    return result;
  }

  // Returns the difference between the solved length of the superview and its current length.
  LayoutExpression superviewGrowth(const UIView* view) const {
    const ViewRecord& state = record(view);
    if (state.superview == nullptr || state.autoresizingMask == 0 || !state.translatesAutoresizingMask) return {};
    LayoutExpression result = length(state.superview);
    if (result.terms.empty()) return {};
    result.constant -= lengthNow(state.superview);
    return result;
  }

  AutoresizingFractions fractions(const UIView* view) const {
    const ViewRecord& state = record(view);
    if (state.superview == nullptr) return {};
    return autoresizingFractions(axis_.mask(state.autoresizingMask), state.layer.origin.model().*axis_.position,
                                 lengthNow(view), lengthNow(state.superview));
  }

  const Axis& axis_;
  const FrameVariableSource& variables_;
};

bool followsReadingDirection(NSLayoutAttribute attribute) {
  return attribute == NSLayoutAttribute::Leading || attribute == NSLayoutAttribute::Trailing;
}

bool isHorizontal(NSLayoutAttribute attribute) {
  switch (attribute) {
    case NSLayoutAttribute::Left:
    case NSLayoutAttribute::Right:
    case NSLayoutAttribute::Leading:
    case NSLayoutAttribute::Trailing:
    case NSLayoutAttribute::Width:
    case NSLayoutAttribute::CenterX:
      return true;
    default:
      return false;
  }
}

// Returns the distance from the top of the view to its first baseline. For a view without text, this is its height.
LayoutExpression firstBaseline(const ExpressionBuilder& builder, const UIView* view) {
  if (!view->respondsToSelector(objc::selector<"_firstBaselineOffset">())) return builder.length(view);
  return {{}, objc::send<CGFloat, "_firstBaselineOffset">(view)};
}

LayoutExpression unmirroredExpression(const UIView* view, NSLayoutAttribute attribute, const UIView* holder,
                                      const FrameVariableSource& source) {
  const ExpressionBuilder builder(isHorizontal(attribute) ? horizontal : vertical, source);
  switch (attribute) {
    case NSLayoutAttribute::NotAnAttribute:
      return {};
    case NSLayoutAttribute::Width:
    case NSLayoutAttribute::Height:
      return builder.length(view);
    default:
      break;
  }
  LayoutExpression result = builder.start(view, holder);
  switch (attribute) {
    case NSLayoutAttribute::Right:
    case NSLayoutAttribute::Trailing:
    case NSLayoutAttribute::Bottom:
      result.add(builder.length(view), 1);
      break;
    case NSLayoutAttribute::CenterX:
    case NSLayoutAttribute::CenterY:
      result.add(builder.length(view), 0.5);
      break;
    case NSLayoutAttribute::FirstBaseline:
      result.add(firstBaseline(builder, view), 1);
      break;
    default:
      break;
  }
  return result;
}

// Returns the expression for a right-to-left layout. Horizontal positions increase to the left, and leading and
// trailing are swapped.
LayoutExpression mirroredExpression(const UIView* view, NSLayoutAttribute attribute, const UIView* holder,
                                    const FrameVariableSource& source) {
  if (attribute == NSLayoutAttribute::Leading)
    attribute = NSLayoutAttribute::Right;
  else if (attribute == NSLayoutAttribute::Trailing)
    attribute = NSLayoutAttribute::Left;
  LayoutExpression mirrored;
  mirrored.add(unmirroredExpression(view, attribute, holder, source), -1);
  return mirrored;
}

}  // namespace

LayoutExpression expressionOf(const ConstraintRecord& constraint, const FrameVariableSource& source) {
  const bool isMirrored =
      (followsReadingDirection(constraint.first.attribute) || followsReadingDirection(constraint.second.attribute)) &&
      effectiveDirection(constraint.firstView) == LayoutDirection::RightToLeft;
  const auto itemExpression = isMirrored ? &mirroredExpression : &unmirroredExpression;
  LayoutExpression result = itemExpression(constraint.firstView, constraint.first.attribute, constraint.holder, source);
  if (constraint.secondView != nullptr)
    result.add(itemExpression(constraint.secondView, constraint.second.attribute, constraint.holder, source),
               -constraint.multiplier);
  result.constant -= constraint.constant;
  std::erase_if(result.terms, [](const layout::Solver::Term& term) { return term.coefficient == 0; });
  return result;
}

}  // namespace uikit
