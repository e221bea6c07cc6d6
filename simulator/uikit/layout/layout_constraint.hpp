// The state of an NSLayoutConstraint. It is a relation between an attribute of a view and an attribute of another view
// or a constant. Main thread only.
#pragma once

#include <string>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"

// The values are those of the platform.
enum class NSLayoutAttribute : NSInteger {
  NotAnAttribute,
  Left,
  Right,
  Top,
  Bottom,
  Leading,
  Trailing,
  Width,
  Height,
  CenterX,
  CenterY,
  FirstBaseline = 12,
};
enum class NSLayoutRelation : NSInteger { LessThanOrEqual = -1, Equal, GreaterThanOrEqual };

namespace uikit {

// One side of a constraint: an attribute of a view. A constraint that contains only a constant has no second item.
struct LayoutItem {
  objc::Weak<UIView> view;
  NSLayoutAttribute attribute = NSLayoutAttribute::NotAnAttribute;
};

// The constraint "first `relation` multiplier * second + constant". A constraint without a second item is "first
// `relation` constant".
struct ConstraintRecord {
  LayoutItem first;
  LayoutItem second;
  NSLayoutRelation relation = NSLayoutRelation::Equal;
  double multiplier = 1;
  double constant = 0;
  float priority = 1000;

  // The views, and their nearest common ancestor, which retains the constraint. All three are borrowed and set only
  // while the constraint is active.
  UIView* holder = nullptr;
  UIView* firstView = nullptr;
  UIView* secondView = nullptr;
  bool conflictReported = false;
};

// Activates the constraint. Logs an error and does nothing if a view was deallocated or the views have no common
// ancestor.
void activate(NSLayoutConstraint* constraint);
void deactivate(NSLayoutConstraint* constraint);
// Deactivates the constraints that connect `leaving` or its descendants with views outside `leaving`. Call this before
// `leaving` is removed from its superview.
void deactivateConstraintsAcross(const UIView* leaving);

// Returns an autoreleased anchor of the view.
NSLayoutAnchor* makeAnchor(UIView* view, NSLayoutAttribute attribute);

const char* nameOf(NSLayoutAttribute attribute);
// Describes a constraint for error messages, such as "<BrimLabel 0x1234>.top >= <UIView 0x5678>.bottom + 8 @750".
std::string describeConstraint(const ConstraintRecord& constraint);

}  // namespace uikit

template <>
struct objc::StateOf<NSLayoutConstraint> {
  using Type = uikit::ConstraintRecord;
};
template <>
struct objc::StateOf<NSLayoutAnchor> {
  using Type = uikit::LayoutItem;
};
