// Tests of the scope of constraint solving: the constraints inside a view with a given frame are solved separately.
#include "simulator/uikit/views/view_hierarchy.hpp"
#include "tests/uikit/constraints_fixture.hpp"

namespace test {

namespace {

// A view with a given frame, and a content view that is constrained to a distance of 10 points from each of its edges.
struct Card {
  objc::Ref<UIView> view;
  objc::Ref<UIView> content;
  NSLayoutConstraint* leading;

  explicit Card(UIView* parent, CGRect frame = {{}, {100, 50}})
      : view(UIKitTest::addView(parent, frame)), content(UIKitTest::addConstrainedView(view)) {
    leading = content->leadingAnchor()->equalTo(view->leadingAnchor(), 10)->activated();
    content->topAnchor()->equalTo(view->topAnchor(), 10)->setActive(true);
    content->trailingAnchor()->equalTo(view->trailingAnchor(), -10)->setActive(true);
    content->bottomAnchor()->equalTo(view->bottomAnchor(), -10)->setActive(true);
  }
};

std::size_t constraintsReadIn(UIView* root) {
  std::size_t count = 0;
  uikit::visitTree(root, [&](UIView* view) {
    if (const auto* engine = uikit::record(view).engine.get()) count += engine->work().constraints;
  });
  return count;
}

}  // namespace

TEST_F(Constraints, ConstraintsAreReadAgainOnlyInTheChangedView) {
  const Card first(root);
  const Card second(root);
  root->layoutIfNeeded();
  const std::size_t before = constraintsReadIn(root);
  const std::size_t beforeInFirst = constraintsReadIn(first.view);
  ASSERT_EQ(before, 2 * beforeInFirst);
  first.leading->setConstant(20);
  root->layoutIfNeeded();
  EXPECT_EQ(constraintsReadIn(second.view), beforeInFirst);
  EXPECT_GT(constraintsReadIn(first.view), beforeInFirst);
  EXPECT_EQ(first.content->frame(), (CGRect{{20, 10}, {70, 30}}));
  EXPECT_EQ(second.content->frame(), (CGRect{{10, 10}, {80, 30}}));
}

TEST_F(Constraints, AddedViewDoesNotAffectItsSiblings) {
  const Card first(root);
  root->layoutIfNeeded();
  const std::size_t before = constraintsReadIn(first.view);
  ASSERT_GT(before, 0U);
  const Card second(root);
  root->layoutIfNeeded();
  EXPECT_EQ(constraintsReadIn(first.view), before);
  EXPECT_EQ(second.content->frame(), (CGRect{{10, 10}, {80, 30}}));
}

TEST_F(Constraints, FollowAViewResizedByItsSuperview) {
  const auto middle = addView(root, {{}, {200, 100}});
  const Card card(middle);
  middle->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  card.view->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  root->layoutIfNeeded();
  ASSERT_EQ(card.content->frame(), (CGRect{{10, 10}, {80, 30}}));
  root->setFrame({{}, {800, 600}});
  root->layoutIfNeeded();
  const CGSize size = card.view->frame().size;
  ASSERT_GT(size.width, 150);
  EXPECT_EQ(card.content->frame(), (CGRect{{10, 10}, {size.width - 20, size.height - 20}}));
}

TEST_F(Constraints, PlaceAViewAndItsContentUntilTheyAreDeactivated) {
  const Card card(root);
  root->layoutIfNeeded();
  NSLayoutConstraint* const placement[] = {
      card.view->leadingAnchor()->equalTo(root->leadingAnchor(), 7), card.view->widthAnchor()->equalToConstant(60),
      card.view->topAnchor()->equalTo(root->topAnchor(), 5), card.view->heightAnchor()->equalToConstant(40)};
  objc::send<void, "setTranslatesAutoresizingMaskIntoConstraints:">(card.view.get(), false);
  for (NSLayoutConstraint* constraint : placement) constraint->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(card.view->frame(), (CGRect{{7, 5}, {60, 40}}));
  EXPECT_EQ(card.content->frame(), (CGRect{{10, 10}, {40, 20}}));

  for (NSLayoutConstraint* constraint : placement) constraint->setActive(false);
  objc::send<void, "setTranslatesAutoresizingMaskIntoConstraints:">(card.view.get(), true);
  card.view->setFrame({{}, {200, 100}});
  root->layoutIfNeeded();
  EXPECT_EQ(card.view->frame(), (CGRect{{}, {200, 100}}));
  EXPECT_EQ(card.content->frame(), (CGRect{{10, 10}, {180, 80}}));
}

TEST_F(Constraints, SizeConstraintsAloneDetermineTheFrame) {
  const auto view = addConstrainedView(addView(root, {{}, {100, 50}}));
  fixSize(view, 30, 20);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame(), (CGRect{{}, {30, 20}}));
}

TEST_F(Constraints, ConstraintsBetweenTwoContentsAreSolvedTogether) {
  const Card first(root, {{0, 0}, {100, 50}});
  const Card second(root, {{0, 60}, {200, 50}});
  root->layoutIfNeeded();
  first.leading->setActive(false);
  first.content->leadingAnchor()->equalTo(second.content->leadingAnchor(), 5)->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(first.content->frame(), (CGRect{{15, 10}, {75, 30}}));
  EXPECT_EQ(second.content->frame(), (CGRect{{10, 10}, {180, 30}}));
  second.leading->setConstant(30);
  root->layoutIfNeeded();
  EXPECT_EQ(first.content->frame(), (CGRect{{35, 10}, {55, 30}}));
}

TEST_F(Constraints, ConstraintChangedInsideATreeAppliesAfterRemovalFromTheTree) {
  const Card card(root);
  card.view->removeFromSuperview();
  card.view->layoutIfNeeded();
  root->addSubview(card.view);
  root->layoutIfNeeded();
  card.leading->setConstant(40);
  card.view->removeFromSuperview();
  card.view->layoutIfNeeded();
  EXPECT_EQ(card.content->frame(), (CGRect{{40, 10}, {50, 30}}));
}

}  // namespace test
