// Which constraints hold: those that conflict, that come and go, and those of views that do.
#include <functional>

#include "tests/uikit/constraints.hpp"

namespace test {

namespace {

std::string standardErrorOf(const std::function<void()>& work) {
  testing::internal::CaptureStderr();
  work();
  return testing::internal::GetCapturedStderr();
}

// Has its superview laid out in its own layout.
class ImpatientView : public objc::Interface<"ImpatientView", UIView> {};
void layoutAround(ImpatientView* self) {
  self->superview()->layoutIfNeeded();
  Stage::write("impatient is done");
}

}  // namespace

TEST_F(Constraints, ConflictIsNamedOnceAndTheRestHolds) {
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 10, 10);
  fixSize(view, 50, 50);
  NSLayoutConstraint* tooMuch = view->widthAnchor()->equalToConstant(70)->activated();
  const std::string told = standardErrorOf([&] { root->layoutIfNeeded(); });
  EXPECT_NE(told.find(".width == 70"), std::string::npos) << told;
  EXPECT_EQ(told.find(".width == 50"), std::string::npos) << told;
  EXPECT_EQ(view->frame(), (CGRect{{10, 10}, {50, 50}}));
  const std::string again = standardErrorOf([&] {
    tooMuch->setConstant(71);
    root->layoutIfNeeded();
  });
  EXPECT_EQ(again, "");
}

TEST_F(Constraints, WithoutACommonAncestorStayInactive) {
  const auto stranger = UIView::withFrame<UIView>({});
  NSLayoutConstraint* constraint = root->leadingAnchor()->equalTo(stranger->leadingAnchor());
  const std::string told = standardErrorOf([&] { constraint->setActive(true); });
  EXPECT_NE(told.find("no common ancestor"), std::string::npos) << told;
  EXPECT_FALSE(constraint->isActive());
}

TEST_F(Constraints, OfAViewThatIsGoneStayInactive) {
  NSLayoutConstraint* constraint = nullptr;
  {
    const objc::AutoreleasePool pool;
    const auto view = UIView::withFrame<UIView>({});
    constraint = objc::retain(view->widthAnchor()->equalToConstant(5)).leak();
  }
  const auto kept = objc::adopt(constraint);
  const std::string told = standardErrorOf([&] { kept->setActive(true); });
  EXPECT_NE(told.find("gone"), std::string::npos) << told;
  EXPECT_FALSE(kept->isActive());
}

TEST_F(Constraints, RemovedViewLeavesItsTiesButKeepsItsOwn) {
  const auto view = addConstrainedView(root);
  const auto inner = addConstrainedView(view);
  NSLayoutConstraint* tie = view->leadingAnchor()->equalTo(root->leadingAnchor())->activated();
  NSLayoutConstraint* deepTie = inner->topAnchor()->equalTo(root->topAnchor())->activated();
  NSLayoutConstraint* own = view->widthAnchor()->equalToConstant(5)->activated();
  NSLayoutConstraint* inside = inner->leadingAnchor()->equalTo(view->leadingAnchor())->activated();
  view->removeFromSuperview();
  EXPECT_FALSE(tie->isActive());
  EXPECT_FALSE(deepTie->isActive());
  EXPECT_TRUE(own->isActive());
  EXPECT_TRUE(inside->isActive());
  root->layoutIfNeeded();
}

TEST_F(Constraints, InactiveOnesDoNothing) {
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

TEST_F(Constraints, LayoutReachesSubviewsOnceAndOnlyWhereNeeded) {
  const auto outer = ProbeView::named("outer");
  const auto inner = ProbeView::named("inner");
  outer->addSubview(inner);
  root->addSubview(outer);
  takeJournal();
  root->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), (Journal{"outer layoutSubviews", "inner layoutSubviews"}));
  root->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), Journal{});
  objc::send<void, "setNeedsLayout">(inner.get());
  root->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), Journal{"inner layoutSubviews"});
  inner->setFrame({{}, {7, 7}});
  inner->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), Journal{"inner layoutSubviews"});
}

TEST_F(Constraints, LayoutFindsWhatNeedsItDeepInside) {
  const auto outer = ProbeView::named("outer");
  const auto middle = ProbeView::named("middle");
  const auto inner = ProbeView::named("inner");
  middle->addSubview(inner);
  outer->addSubview(middle);
  root->addSubview(outer);
  root->layoutIfNeeded();
  takeJournal();
  objc::send<void, "setNeedsLayout">(inner.get());
  middle->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), Journal{"inner layoutSubviews"});
  objc::send<void, "setNeedsLayout">(inner.get());
  root->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), Journal{"inner layoutSubviews"});
}

TEST_F(Constraints, LayoutInsideALayoutReachesTheSiblings) {
  static constexpr objc::MethodEntry methods[] = {objc::method<"layoutSubviews", &layoutAround>()};
  objc::defineClass<ImpatientView>(methods);
  const auto impatient = objc::make<ImpatientView>();
  const auto inner = ProbeView::named("inner");
  impatient->addSubview(inner);
  const auto sibling = ProbeView::named("sibling");
  root->addSubview(impatient);
  root->addSubview(sibling);
  takeJournal();
  root->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), (Journal{"inner layoutSubviews", "sibling layoutSubviews", "impatient is done"}));
  impatient->layoutIfNeeded();
  objc::send<void, "setNeedsLayout">(inner.get());
  root->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), Journal{"inner layoutSubviews"});
}

TEST_F(Constraints, LayoutFindsWhatNeededItBeforeItWasMoved) {
  const auto middle = ProbeView::named("middle");
  const auto inner = ProbeView::named("inner");
  middle->addSubview(inner);
  root->addSubview(middle);
  root->layoutIfNeeded();
  middle->removeFromSuperview();
  objc::send<void, "setNeedsLayout">(inner.get());
  const auto other = addView(root, {{}, {50, 50}});
  root->layoutIfNeeded();
  takeJournal();
  other->addSubview(middle);
  takeJournal();
  root->layoutIfNeeded();
  EXPECT_EQ(takeJournal(), Journal{"inner layoutSubviews"});
}

TEST_F(Constraints, MovedViewIsPlacedInItsNewTree) {
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
