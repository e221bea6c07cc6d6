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

// Where the two axes differ.
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
  ExpressionBuilder(const Axis& axis, const FrameUnknowns& unknowns) : axis_(axis), unknowns_(unknowns) {}

  LayoutExpression length(const UIView* view) const {
    LayoutExpression result;
    if (const FrameVariables* variables = unknowns_.of(view)) {
      result.add(variables->*axis_.lengthVariable, 1);
      return result;
    }
    result.constant = lengthNow(view);
    result.add(superviewGrowth(view), shares(view).length);
    return result;
  }

  // The beginning of the view in the coordinates of an ancestor, or its own.
  LayoutExpression beginning(const UIView* view, const UIView* ancestor) const {
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
    if (const FrameVariables* variables = unknowns_.of(view)) {
      result.add(variables->*axis_.positionVariable, 1);
      return result;
    }
    result.constant = record(view).layer.origin.model().*axis_.position;
    result.add(superviewGrowth(view), shares(view).position);
    return result;
  }

  // By how much the superview will be longer than it is now.
  LayoutExpression superviewGrowth(const UIView* view) const {
    const ViewRecord& state = record(view);
    if (state.superview == nullptr || state.autoresizingMask == 0 || !state.translatesAutoresizingMask) return {};
    LayoutExpression result = length(state.superview);
    if (result.terms.empty()) return {};
    result.constant -= lengthNow(state.superview);
    return result;
  }

  AutoresizingShares shares(const UIView* view) const {
    const ViewRecord& state = record(view);
    if (state.superview == nullptr) return {};
    return autoresizingShares(axis_.mask(state.autoresizingMask), state.layer.origin.model().*axis_.position,
                              lengthNow(view), lengthNow(state.superview));
  }

  const Axis& axis_;
  const FrameUnknowns& unknowns_;
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

// From the view's top; the bottom edge where there is no text.
LayoutExpression firstBaseline(const ExpressionBuilder& builder, const UIView* view) {
  if (!view->respondsToSelector(objc::selector<"_firstBaselineOffset">())) return builder.length(view);
  return {{}, objc::send<CGFloat, "_firstBaselineOffset">(view)};
}

LayoutExpression plainExpression(const UIView* view, NSLayoutAttribute attribute, const UIView* holder,
                                 const FrameUnknowns& unknowns) {
  const ExpressionBuilder builder(isHorizontal(attribute) ? horizontal : vertical, unknowns);
  switch (attribute) {
    case NSLayoutAttribute::NotAnAttribute:
      return {};
    case NSLayoutAttribute::Width:
    case NSLayoutAttribute::Height:
      return builder.length(view);
    default:
      break;
  }
  LayoutExpression result = builder.beginning(view, holder);
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

// In a layout that runs from right to left, horizontal places are measured leftwards and the two sides swap.
LayoutExpression mirroredExpression(const UIView* view, NSLayoutAttribute attribute, const UIView* holder,
                                    const FrameUnknowns& unknowns) {
  if (attribute == NSLayoutAttribute::Leading)
    attribute = NSLayoutAttribute::Right;
  else if (attribute == NSLayoutAttribute::Trailing)
    attribute = NSLayoutAttribute::Left;
  LayoutExpression mirrored;
  mirrored.add(plainExpression(view, attribute, holder, unknowns), -1);
  return mirrored;
}

}  // namespace

LayoutExpression expressionOf(const ConstraintRecord& constraint, const FrameUnknowns& unknowns) {
  const bool isMirrored =
      (followsReadingDirection(constraint.first.attribute) || followsReadingDirection(constraint.second.attribute)) &&
      effectiveDirection(constraint.firstView) == LayoutDirection::RightToLeft;
  const auto itemExpression = isMirrored ? &mirroredExpression : &plainExpression;
  LayoutExpression result =
      itemExpression(constraint.firstView, constraint.first.attribute, constraint.holder, unknowns);
  if (constraint.secondView != nullptr)
    result.add(itemExpression(constraint.secondView, constraint.second.attribute, constraint.holder, unknowns),
               -constraint.multiplier);
  result.constant -= constraint.constant;
  std::erase_if(result.terms, [](const layout::Solver::Term& term) { return term.coefficient == 0; });
  return result;
}

}  // namespace uikit
