// A fixture for tests of constraints, with a root view of 400 by 300 points and functions for common constraints.
#pragma once

#include "simulator/uikit/layout/layout_constraint.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

class Constraints : public UIKitTest {
 public:
  objc::Ref<UIView> root = UIView::withFrame<UIView>({{}, {400, 300}});
};

inline NSLayoutConstraint* withPriority(NSLayoutConstraint* constraint, float priority) {
  objc::send<void, "setPriority:">(constraint, priority);
  return constraint;
}

inline void pinTopLeft(UIView* view, UIView* parent, double x, double y) {
  view->leadingAnchor()->equalTo(parent->leadingAnchor(), x)->setActive(true);
  view->topAnchor()->equalTo(parent->topAnchor(), y)->setActive(true);
}

inline void fixSize(UIView* view, double width, double height) {
  view->widthAnchor()->equalToConstant(width)->setActive(true);
  view->heightAnchor()->equalToConstant(height)->setActive(true);
}

}  // namespace test
