#include "tests/uikit/constraints_fixture.hpp"

namespace test {

namespace {

NSLayoutConstraint* equalDimension(NSLayoutDimension* self, NSLayoutDimension* other, double multiplier) {
  return objc::send<NSLayoutConstraint*, "constraintEqualToAnchor:multiplier:">(self, other, multiplier);
}

NSLayoutConstraint* atMost(NSLayoutAnchor* self, NSLayoutAnchor* other) {
  return objc::send<NSLayoutConstraint*, "constraintLessThanOrEqualToAnchor:">(self, other);
}

void useRightToLeftLayout() {
  uikit::Environment environment;
  environment.direction = uikit::LayoutDirection::RightToLeft;
  uikit::setEnvironment(environment);
}

}  // namespace

TEST_F(Constraints, PlaceAViewByItsEdges) {
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 10, 20);
  view->trailingAnchor()->equalTo(root->trailingAnchor(), -30)->setActive(true);
  view->bottomAnchor()->equalTo(root->bottomAnchor(), -40)->setActive(true);
  EXPECT_EQ(view->frame(), CGRect{});
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame(), (CGRect{{10, 20}, {360, 240}}));
}

TEST_F(Constraints, PlaceAViewByItsCenterAndDimensions) {
  const auto view = addConstrainedView(root);
  view->centerXAnchor()->equalTo(root->centerXAnchor())->setActive(true);
  view->centerYAnchor()->equalTo(root->centerYAnchor(), 5)->setActive(true);
  equalDimension(view->widthAnchor(), root->widthAnchor(), 0.25)->setActive(true);
  equalDimension(view->heightAnchor(), view->widthAnchor(), 0.5)->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame(), (CGRect{{150, 130}, {100, 50}}));
}

TEST_F(Constraints, FollowTheSuperviewsSize) {
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 0, 0);
  view->trailingAnchor()->equalTo(root->trailingAnchor())->setActive(true);
  view->heightAnchor()->equalToConstant(10)->setActive(true);
  root->layoutIfNeeded();
  root->setFrame({{}, {500, 300}});
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame(), (CGRect{{}, {500, 10}}));
}

TEST_F(Constraints, ConnectViewsAtDifferentLevelsOfTheTree) {
  const auto panel = addView(root, {{100, 50}, {200, 200}});
  const auto inner = addConstrainedView(panel);
  const auto outer = addConstrainedView(root);
  pinTopLeft(inner, panel, 10, 10);
  fixSize(inner, 20, 20);
  outer->leadingAnchor()->equalTo(inner->trailingAnchor(), 5)->setActive(true);
  outer->topAnchor()->equalTo(inner->bottomAnchor(), 5)->setActive(true);
  fixSize(outer, 1, 1);
  root->layoutIfNeeded();
  EXPECT_EQ(outer->frame(), (CGRect{{135, 85}, {1, 1}}));
  panel->setFrame({{0, 0}, {200, 200}});
  root->layoutIfNeeded();
  EXPECT_EQ(outer->frame(), (CGRect{{35, 35}, {1, 1}}));
}

TEST_F(Constraints, ChangedConstantTakesEffectAtTheNextLayout) {
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 0, 0);
  fixSize(view, 10, 10);
  const auto top = objc::retain(view->topAnchor()->equalTo(root->topAnchor(), 0));
  root->layoutIfNeeded();
  NSLayoutConstraint* constraint =
      static_cast<NSLayoutConstraint*>(objc::send<NSArray*, "constraints">(root.get())->objectAtIndex(1));
  constraint->setConstant(33.5);
  EXPECT_EQ(constraint->constant(), 33.5);
  EXPECT_EQ(view->frame().origin.y, 0);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame().origin.y, 33.5);
}

TEST_F(Constraints, LeadingIsRightInRightToLeftLayout) {
  useRightToLeftLayout();
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 10, 0);
  view->trailingAnchor()->equalTo(root->trailingAnchor(), -50)->setActive(true);
  view->heightAnchor()->equalToConstant(1)->setActive(true);
  const auto badge = addConstrainedView(root);
  badge->leadingAnchor()->equalTo(view->centerXAnchor(), 5)->setActive(true);
  badge->topAnchor()->equalTo(root->topAnchor())->setActive(true);
  fixSize(badge, 8, 8);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame(), (CGRect{{50, 0}, {340, 1}}));
  // The center of the view is at x = 220. The leading (right) edge of the badge is 5 points to the left of it.
  EXPECT_EQ(badge->frame().origin.x, 207);
}

TEST_F(Constraints, AtLeastIsMirroredInRightToLeftLayout) {
  useRightToLeftLayout();
  const auto view = addConstrainedView(root);
  view->leadingAnchor()->atLeast(root->leadingAnchor(), 30)->setActive(true);
  withPriority(view->leadingAnchor()->equalTo(root->leadingAnchor()), 500)->setActive(true);
  view->topAnchor()->equalTo(root->topAnchor())->setActive(true);
  fixSize(view, 20, 20);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame().origin.x, 350);
}

TEST_F(Constraints, LeftAnchorsAndForcedDirectionsIgnoreTheLanguage) {
  useRightToLeftLayout();
  const auto left = addConstrainedView(root);
  const auto anchor = [](UIView* view) { return objc::send<NSLayoutAnchor*, "leftAnchor">(view); };
  anchor(left)->equalTo(anchor(root), 10)->setActive(true);
  const auto forced = addConstrainedView(root);
  objc::send<void, "setSemanticContentAttribute:">(forced.get(), NSInteger{3});
  forced->leadingAnchor()->equalTo(root->leadingAnchor(), 10)->setActive(true);
  fixSize(left, 5, 5);
  fixSize(forced, 5, 5);
  root->layoutIfNeeded();
  EXPECT_EQ(left->frame().origin.x, 10);
  EXPECT_EQ(forced->frame().origin.x, 10);
}

TEST_F(Constraints, HigherPriorityWins) {
  const auto view = addConstrainedView(root);
  pinTopLeft(view, root, 0, 0);
  view->heightAnchor()->equalToConstant(1)->setActive(true);
  withPriority(view->widthAnchor()->equalToConstant(50), 400)->setActive(true);
  withPriority(view->widthAnchor()->equalToConstant(70), 600)->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(view->frame().size.width, 70);
}

TEST_F(Constraints, IntrinsicSizeOutranksLowPrioritiesAndYieldsToHighOnes) {
  const auto weak = ParagraphView::withLength(10);
  const auto strong = ParagraphView::withLength(10);
  for (const auto& view : {weak, strong}) {
    root->addSubview(view);
    pinTopLeft(view, root, 0, 0);
  }
  withPriority(weak->widthAnchor()->equalToConstant(300), 200)->setActive(true);
  withPriority(strong->widthAnchor()->equalToConstant(60), 800)->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(weak->frame().size, (CGSize{100, 10}));
  EXPECT_EQ(strong->frame().size, (CGSize{60, 20}));
}

TEST_F(Constraints, ParagraphHeightFollowsItsWidth) {
  const auto text = ParagraphView::withLength(30);
  root->addSubview(text);
  pinTopLeft(text, root, 16, 0);
  text->trailingAnchor()->equalTo(root->trailingAnchor(), -16)->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(text->frame(), (CGRect{{16, 0}, {368, 10}}));
  root->setFrame({{}, {132, 300}});
  root->layoutIfNeeded();
  EXPECT_EQ(text->frame(), (CGRect{{16, 0}, {100, 30}}));
  root->setFrame({{}, {400, 300}});
  root->layoutIfNeeded();
  EXPECT_EQ(text->frame().size.height, 10);
}

TEST_F(Constraints, HeightWithOnlyMinimumsIsTheSmallestPossible) {
  const auto banner = addConstrainedView(root);
  const auto icon = addConstrainedView(banner);
  const auto text = ParagraphView::withLength(60);
  banner->addSubview(text);
  const auto buttons = addConstrainedView(banner);
  banner->leadingAnchor()->equalTo(root->leadingAnchor())->setActive(true);
  banner->trailingAnchor()->equalTo(root->trailingAnchor())->setActive(true);
  banner->topAnchor()->equalTo(root->topAnchor(), -70)->setActive(true);
  pinTopLeft(icon, banner, 15, 44);
  fixSize(icon, 45, 45);
  pinTopLeft(text, banner, 200, 44);
  text->trailingAnchor()->equalTo(banner->trailingAnchor())->setActive(true);
  banner->bottomAnchor()->atLeast(text->bottomAnchor(), 16.67)->setActive(true);
  banner->bottomAnchor()->atLeast(icon->bottomAnchor(), 16.67)->setActive(true);
  pinTopLeft(buttons, banner, 15, 0);
  NSArray* constraints = objc::send<NSArray*, "constraints">(banner.get());
  static_cast<NSLayoutConstraint*>(constraints->objectAtIndex(constraints->count() - 1))->setActive(false);
  buttons->topAnchor()->atLeast(text->bottomAnchor(), 8)->setActive(true);
  buttons->topAnchor()->atLeast(icon->bottomAnchor(), 8)->setActive(true);
  fixSize(buttons, 100, 36);
  root->layoutIfNeeded();
  EXPECT_EQ(text->frame(), (CGRect{{200, 44}, {200, 30}}));
  EXPECT_EQ(banner->frame(), (CGRect{{0, -70}, {400, 105.67}}));
  EXPECT_EQ(buttons->frame().origin.y, 97);
}

TEST_F(Constraints, AutoresizedViewInsideAConstrainedViewGrowsWithIt) {
  const auto panel = addConstrainedView(root);
  pinTopLeft(panel, root, 0, 0);
  const auto backdrop = addView(panel, {});
  backdrop->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
  const auto mark = addConstrainedView(panel);
  mark->trailingAnchor()->equalTo(backdrop->trailingAnchor())->setActive(true);
  mark->topAnchor()->equalTo(backdrop->topAnchor())->setActive(true);
  fixSize(mark, 1, 1);
  fixSize(panel, 120, 80);
  root->layoutIfNeeded();
  EXPECT_EQ(backdrop->frame(), (CGRect{{}, {120, 80}}));
  EXPECT_EQ(mark->frame().origin.x, 119);
}

TEST_F(Constraints, AtMostLimitsTheWidth) {
  const auto text = ParagraphView::withLength(100);
  root->addSubview(text);
  pinTopLeft(text, root, 0, 0);
  atMost(text->trailingAnchor(), root->trailingAnchor())->setActive(true);
  root->layoutIfNeeded();
  EXPECT_EQ(text->frame().size, (CGSize{400, 30}));
}

}  // namespace test
