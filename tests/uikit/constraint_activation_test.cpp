// Tests of the activation and conflicts of constraints, of their removal together with views, and of the views that a
// layout pass visits.
#include <functional>

#include "tests/uikit/constraints_fixture.hpp"

namespace test {

namespace {

std::string standardErrorOf(const std::function<void()>& work) {
  testing::internal::CaptureStderr();
  work();
  return testing::internal::GetCapturedStderr();
}

// A view that lays out its superview during its own layout.
class NestedLayoutView : public objc::Interface<"NestedLayoutView", UIView> {};
void layoutSuperview(NestedLayoutView* self) {
  self->superview()->layoutIfNeeded();
  UIKitTest::log("nested layout is done");
}

}  // namespace

TEST_F(Constraints, ConflictIsReportedOnceAndTheOthersAreSatisfied) {
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 10, 10);
  fixSize(view, 50, 50);
  NSLayoutConstraint* conflicting = view->widthAnchor()->equalToConstant(70)->activated();
  const std::string error = standardErrorOf([&] { root->layoutIfNeeded(); });
  EXPECT_NE(error.find(".width == 70"), std::string::npos) << error;
  EXPECT_EQ(error.find(".width == 50"), std::string::npos) << error;
  EXPECT_EQ(view->frame(), (CGRect{{10, 10}, {50, 50}}));
  const std::string secondError = standardErrorOf([&] {
    conflicting->setConstant(71);
    root->layoutIfNeeded();
  });
  EXPECT_EQ(secondError, "");
}

TEST_F(Constraints, ConstraintWithoutACommonAncestorStaysInactive) {
  const auto unrelated = UIView::withFrame<UIView>({});
  NSLayoutConstraint* constraint = root->leadingAnchor()->equalTo(unrelated->leadingAnchor());
  const std::string error = standardErrorOf([&] { constraint->setActive(true); });
  EXPECT_NE(error.find("no common ancestor"), std::string::npos) << error;
  EXPECT_FALSE(constraint->isActive());
}

TEST_F(Constraints, ConstraintOfADeallocatedViewStaysInactive) {
  NSLayoutConstraint* constraint = nullptr;
  {
    const objc::AutoreleasePool pool;
    const auto view = UIView::withFrame<UIView>({});
    constraint = objc::retain(view->widthAnchor()->equalToConstant(5)).leak();
  }
  const auto retained = objc::adopt(constraint);
  const std::string error = standardErrorOf([&] { retained->setActive(true); });
  EXPECT_NE(error.find("deallocated"), std::string::npos) << error;
  EXPECT_FALSE(retained->isActive());
}

TEST_F(Constraints, RemovedViewLosesConstraintsToItsOldTreeAndKeepsItsOwn) {
  const auto view = addConstrainedView(root);
  const auto inner = addConstrainedView(view);
  NSLayoutConstraint* constraintToRoot = view->leadingAnchor()->equalTo(root->leadingAnchor())->activated();
  NSLayoutConstraint* innerConstraintToRoot = inner->topAnchor()->equalTo(root->topAnchor())->activated();
  NSLayoutConstraint* widthConstraint = view->widthAnchor()->equalToConstant(5)->activated();
  NSLayoutConstraint* internalConstraint = inner->leadingAnchor()->equalTo(view->leadingAnchor())->activated();
  view->removeFromSuperview();
  EXPECT_FALSE(constraintToRoot->isActive());
  EXPECT_FALSE(innerConstraintToRoot->isActive());
  EXPECT_TRUE(widthConstraint->isActive());
  EXPECT_TRUE(internalConstraint->isActive());
  root->layoutIfNeeded();
}

TEST_F(Constraints, InactiveConstraintsHaveNoEffect) {
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 0, 0);
  fixSize(view, 10, 10);
  NSLayoutConstraint* wider = view->widthAnchor()->equalToConstant(99);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame().size.width, 10);
  withPriority(wider, 1)->setActive(true);
  wider->setActive(false);
  wider->setActive(false);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame().size.width, 10);
}

TEST_F(Constraints, LayoutVisitsSubviewsOnceAndOnlyIfNeeded) {
  const auto outer = ProbeView::named("outer");
  const auto inner = ProbeView::named("inner");
  outer->addSubview(inner);
  root->addSubview(outer);
  takeLog();
  root->layoutIfNeeded();
  EXPECT_EQ(takeLog(), (Log{"outer layoutSubviews", "inner layoutSubviews"}));
  root->layoutIfNeeded();
  EXPECT_EQ(takeLog(), Log{});
  objc::send<void, "setNeedsLayout">(inner.get());
  root->layoutIfNeeded();
  EXPECT_EQ(takeLog(), Log{"inner layoutSubviews"});
  inner->setFrame({{}, {7, 7}});
  inner->layoutIfNeeded();
  EXPECT_EQ(takeLog(), Log{"inner layoutSubviews"});
}

TEST_F(Constraints, LayoutVisitsADeeplyNestedViewThatNeedsIt) {
  const auto outer = ProbeView::named("outer");
  const auto middle = ProbeView::named("middle");
  const auto inner = ProbeView::named("inner");
  middle->addSubview(inner);
  outer->addSubview(middle);
  root->addSubview(outer);
  root->layoutIfNeeded();
  takeLog();
  objc::send<void, "setNeedsLayout">(inner.get());
  middle->layoutIfNeeded();
  EXPECT_EQ(takeLog(), Log{"inner layoutSubviews"});
  objc::send<void, "setNeedsLayout">(inner.get());
  root->layoutIfNeeded();
  EXPECT_EQ(takeLog(), Log{"inner layoutSubviews"});
}

TEST_F(Constraints, LayoutDuringALayoutReachesTheSiblings) {
  static constexpr objc::MethodEntry methods[] = {objc::method<"layoutSubviews", &layoutSuperview>()};
  objc::defineClass<NestedLayoutView>(methods);
  const auto nestedLayout = objc::make<NestedLayoutView>();
  const auto inner = ProbeView::named("inner");
  nestedLayout->addSubview(inner);
  const auto sibling = ProbeView::named("sibling");
  root->addSubview(nestedLayout);
  root->addSubview(sibling);
  takeLog();
  root->layoutIfNeeded();
  EXPECT_EQ(takeLog(), (Log{"inner layoutSubviews", "sibling layoutSubviews", "nested layout is done"}));
  nestedLayout->layoutIfNeeded();
  objc::send<void, "setNeedsLayout">(inner.get());
  root->layoutIfNeeded();
  EXPECT_EQ(takeLog(), Log{"inner layoutSubviews"});
}

TEST_F(Constraints, LayoutVisitsAViewThatNeededItBeforeTheMove) {
  const auto middle = ProbeView::named("middle");
  const auto inner = ProbeView::named("inner");
  middle->addSubview(inner);
  root->addSubview(middle);
  root->layoutIfNeeded();
  middle->removeFromSuperview();
  objc::send<void, "setNeedsLayout">(inner.get());
  const auto other = addView(root, {{}, {50, 50}});
  root->layoutIfNeeded();
  takeLog();
  other->addSubview(middle);
  takeLog();
  root->layoutIfNeeded();
  EXPECT_EQ(takeLog(), Log{"inner layoutSubviews"});
}

TEST_F(Constraints, MovedViewFollowsConstraintsOfItsNewTree) {
  const auto view = addConstrainedView(root);
  fixSize(view, 10, 10);
  pinTopLeft(view, root, 1, 1);
  root->layoutIfNeeded();
  const auto other = UIView::withFrame<UIView>({{}, {50, 50}});
  other->addSubview(view);
  pinTopLeft(view, other, 20, 20);
  other->layoutIfNeeded();
  EXPECT_EQ(view->frame(), (CGRect{{20, 20}, {10, 10}}));
  root->layoutIfNeeded();
}

}  // namespace test
