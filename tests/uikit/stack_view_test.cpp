// Tests of UIStackView.
#include "platform/ui_stack_view.hpp"

#include "platform/ui_label.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

class StackView : public UIKitTest {
 public:
  StackView() {
    stack->setDistribution(UIStackViewDistribution::FillEqually);
    stack->setSpacing(15);
    for (const auto& view : views) stack->addArrangedSubview(view);
    window->addSubview(stack);
  }

  CGRect frame(std::size_t index) const {
    window->layoutIfNeeded();
    return views[index]->frame();
  }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UIStackView> stack = UIView::withFrame<UIStackView>({{10, 10}, {330, 36}});
  std::vector<objc::Ref<UIView>> views = {UIView::withFrame<UIView>({}), UIView::withFrame<UIView>({}),
                                          UIView::withFrame<UIView>({})};
};

objc::Ref<UILabel> makeLabel(NSString* text) {
  auto label = UIView::withFrame<UILabel>({});
  label->setText(text);
  return label;
}

CGSize intrinsicSize(const UIView* view) { return objc::send<CGSize, "intrinsicContentSize">(view); }

TEST_F(StackView, GivesItsViewsEqualWidths) {
  EXPECT_EQ(frame(0), (CGRect{{0, 0}, {100, 36}}));
  EXPECT_EQ(frame(1), (CGRect{{115, 0}, {100, 36}}));
  EXPECT_EQ(frame(2), (CGRect{{230, 0}, {100, 36}}));
}

TEST_F(StackView, SkipsHiddenViews) {
  frame(0);
  views[1]->setHidden(true);
  EXPECT_EQ(frame(0), (CGRect{{0, 0}, {157.5, 36}}));
  EXPECT_EQ(frame(2), (CGRect{{172.5, 0}, {157.5, 36}}));
  views[1]->setHidden(false);
  EXPECT_EQ(frame(1), (CGRect{{115, 0}, {100, 36}}));
}

TEST_F(StackView, ShowsViewsAgainAfterAllWereHidden) {
  for (const auto& view : views) view->setHidden(true);
  frame(0);
  for (const auto& view : views) view->setHidden(false);
  EXPECT_EQ(frame(2), (CGRect{{230, 0}, {100, 36}}));
}

TEST_F(StackView, StartsOnTheRightInRightToLeftLanguages) {
  uikit::Environment environment;
  environment.direction = uikit::LayoutDirection::RightToLeft;
  uikit::setEnvironment(environment);
  EXPECT_EQ(frame(0), (CGRect{{230, 0}, {100, 36}}));
  EXPECT_EQ(frame(2), (CGRect{{0, 0}, {100, 36}}));
}

TEST_F(StackView, FollowsItsOwnSize) {
  frame(0);
  stack->setFrame({{10, 10}, {180, 50}});
  EXPECT_EQ(frame(1), (CGRect{{65, 0}, {50, 50}}));
}

TEST_F(StackView, ClosesTheGapOfARemovedView) {
  views[0]->removeFromSuperview();
  EXPECT_EQ(frame(1), (CGRect{{0, 0}, {157.5, 36}}));
  objc::send<void, "removeArrangedSubview:">(stack.get(), views[1].get());
  EXPECT_EQ(frame(2), (CGRect{{0, 0}, {330, 36}}));
  EXPECT_EQ(views[1]->superview(), stack.get());
}

TEST_F(StackView, MovesAViewThatIsAddedAgainToTheEnd) {
  stack->addArrangedSubview(views[0]);
  EXPECT_EQ(frame(0), (CGRect{{230, 0}, {100, 36}}));
  EXPECT_EQ((objc::send<NSArray*, "arrangedSubviews">(stack.get()))->count(), 3u);
}

TEST_F(StackView, IgnoresNil) {
  stack->addArrangedSubview(nullptr);
  EXPECT_EQ((objc::send<NSArray*, "arrangedSubviews">(stack.get()))->count(), 3u);
}

TEST_F(StackView, IntrinsicSizeFitsAllViews) {
  const auto row = UIView::withFrame<UIStackView>({});
  const auto narrow = makeLabel("i"_ns);
  const auto wide = makeLabel("Wide text"_ns);
  row->addArrangedSubview(narrow);
  row->addArrangedSubview(wide);
  row->setSpacing(10);
  const CGSize small = intrinsicSize(narrow);
  const CGSize large = intrinsicSize(wide);
  EXPECT_EQ(intrinsicSize(row), (CGSize{small.width + 10 + large.width, large.height}));
  row->setDistribution(UIStackViewDistribution::FillEqually);
  EXPECT_EQ(intrinsicSize(row), (CGSize{2 * large.width + 10, large.height}));
}

TEST_F(StackView, GivesTheRemainingWidthToTheLastView) {
  const auto row = UIView::withFrame<UIStackView>({{0, 100}, {300, 20}});
  const auto first = makeLabel("First"_ns);
  const auto last = makeLabel("Last"_ns);
  row->addArrangedSubview(first);
  row->addArrangedSubview(last);
  window->addSubview(row);
  window->layoutIfNeeded();
  const double width = intrinsicSize(first).width;
  EXPECT_EQ(first->frame(), (CGRect{{0, 0}, {width, 20}}));
  EXPECT_EQ(last->frame(), (CGRect{{width, 0}, {300 - width, 20}}));
}

TEST_F(StackView, VerticalAxisStacksDownward) {
  constexpr auto vertical = static_cast<UILayoutConstraintAxis>(1);
  stack->setAxis(vertical);
  stack->setFrame({{0, 0}, {100, 330}});
  EXPECT_EQ(frame(1), (CGRect{{0, 115}, {100, 100}}));
}

TEST_F(StackView, CanBePlacedByConstraints) {
  stack->setTranslatesAutoresizingMaskIntoConstraints(false);
  stack->leadingAnchor()->equalTo(window->leadingAnchor(), 15)->activated();
  stack->trailingAnchor()->equalTo(window->trailingAnchor(), -15)->activated();
  stack->topAnchor()->equalTo(window->topAnchor(), 40)->activated();
  stack->heightAnchor()->equalToConstant(36)->activated();
  EXPECT_EQ(frame(0), (CGRect{{0, 0}, {105, 36}}));
  EXPECT_EQ(stack->frame(), (CGRect{{15, 40}, {345, 36}}));
}

}  // namespace

}  // namespace test
