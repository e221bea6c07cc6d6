// NSLayoutConstraint's state: one attribute of a view against one of another, or against a constant.
#pragma once

#include <string>

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"

// The platform's numbers.
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

// first.attribute `relation` multiplier * second.attribute + constant; without a second view the constant alone.
struct LayoutItem {
  objc::Weak<UIView> view;
  NSLayoutAttribute attribute = NSLayoutAttribute::NotAnAttribute;
};

struct ConstraintRecord {
  LayoutItem first;
  LayoutItem second;
  NSLayoutRelation relation = NSLayoutRelation::Equal;
  double multiplier = 1;
  double constant = 0;
  float priority = 1000;

  // While active: the common ancestor that holds the constraint, and the views, which are inside it.
  UIView* holder = nullptr;
  UIView* firstView = nullptr;
  UIView* secondView = nullptr;
  bool conflictReported = false;
};

void activate(NSLayoutConstraint* constraint);
void deactivate(NSLayoutConstraint* constraint);
// Deactivates what ties the view or anything inside it to its surroundings, before it leaves them.
void deactivateConstraintsAcross(const UIView* leaving);

// An anchor of the view, autoreleased.
NSLayoutAnchor* makeAnchor(UIView* view, NSLayoutAttribute attribute);

const char* nameOf(NSLayoutAttribute attribute);
// "<BrimLabel 0x1234>.top >= <UIView 0x5678>.bottom + 8 @750"
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
