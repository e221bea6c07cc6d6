// NSLayoutConstraint and the layout anchors that create constraints. Lengths are in points. Main thread only.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_object.hpp"

class NSLayoutConstraint : public objc::Interface<"NSLayoutConstraint", NSObject> {
 public:
  CGFloat constant() const { return objc::send<CGFloat, "constant">(this); }
  void setConstant(CGFloat constant) { objc::send<void, "setConstant:">(this, constant); }
  // From 1 to 1000. A constraint with the priority 1000, which is the default, is required.
  void setPriority(float priority) { objc::send<void, "setPriority:">(this, priority); }
  bool isActive() const { return objc::send<bool, "isActive">(this); }
  void setActive(bool active) { objc::send<void, "setActive:">(this, active); }
  // Activates the constraint and returns it.
  NSLayoutConstraint* activated() {
    setActive(true);
    return this;
  }
};

// A layout anchor: an edge, a center or a dimension of a view. An anchor creates inactive constraints.
class NSLayoutAnchor : public objc::Interface<"NSLayoutAnchor", NSObject> {
 public:
  NSLayoutConstraint* equalTo(NSLayoutAnchor* other, CGFloat constant = 0) const {
    return objc::send<NSLayoutConstraint*, "constraintEqualToAnchor:constant:">(this, other, constant);
  }
  NSLayoutConstraint* atLeast(NSLayoutAnchor* other, CGFloat constant = 0) const {
    return objc::send<NSLayoutConstraint*, "constraintGreaterThanOrEqualToAnchor:constant:">(this, other, constant);
  }
};

class NSLayoutXAxisAnchor : public objc::Interface<"NSLayoutXAxisAnchor", NSLayoutAnchor> {};
class NSLayoutYAxisAnchor : public objc::Interface<"NSLayoutYAxisAnchor", NSLayoutAnchor> {};

class NSLayoutDimension : public objc::Interface<"NSLayoutDimension", NSLayoutAnchor> {
 public:
  NSLayoutConstraint* equalToConstant(CGFloat constant) const {
    return objc::send<NSLayoutConstraint*, "constraintEqualToConstant:">(this, constant);
  }
};
