// Tests of UIButton.
#include "platform/ui_button.hpp"

#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/views/color.hpp"
#include "tests/uikit/control_target.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

class Buttons : public UIKitTest {};

objc::Ref<UIButton> makeButton(CGRect frame = {{0, 0}, {200, 36}}) {
  auto button = UIView::withFrame<UIButton>(frame);
  button->setTitle("Close"_ns, UIControlState::Normal);
  button->titleLabel()->setFont(UIFont::systemFontOfSize(13));
  return button;
}

UIButton* makeSystemButton() {
  UIButton* button = objc::send<UIButton*, "buttonWithType:">(UIButton::classObject(), NSInteger{1});
  button->setTitle("Close"_ns, UIControlState::Normal);
  return button;
}

double alphaOf(const UIView* view) { return objc::send<CGFloat, "alpha">(view); }

TEST_F(Buttons, CenterTheirTitle) {
  const auto button = makeButton();
  button->layoutIfNeeded();
  const CGRect title = button->titleLabel()->frame();
  EXPECT_EQ(text(button->titleLabel()->text()), "Close");
  EXPECT_GT(title.size.width, 20);
  EXPECT_NEAR(title.origin.x + title.size.width / 2, 100, 0.5);
  EXPECT_NEAR(title.origin.y + title.size.height / 2, 18, 0.5);
}

TEST_F(Buttons, UseTheFontOfTheirTitleLabel) {
  const auto button = makeButton();
  button->layoutIfNeeded();
  const double before = button->titleLabel()->frame().size.width;
  button->titleLabel()->setFont(UIFont::boldSystemFontOfSize(20));
  button->layoutIfNeeded();
  EXPECT_GT(button->titleLabel()->frame().size.width, before);
  EXPECT_EQ(describe(button->titleLabel()).at("font").at("weight"), "bold");
}

TEST_F(Buttons, LimitTheTitleToTheirBounds) {
  const auto button = makeButton({{0, 0}, {20, 10}});
  button->layoutIfNeeded();
  EXPECT_EQ(button->titleLabel()->frame(), (CGRect{{0, 0}, {20, 10}}));
}

TEST_F(Buttons, HaveATitleForEachState) {
  const auto button = makeButton();
  button->setTitle("Closed"_ns, uikit::disabledState);
  EXPECT_EQ(text(button->titleLabel()->text()), "Close");
  button->setEnabled(false);
  EXPECT_EQ(text(button->titleLabel()->text()), "Closed");
  button->setTitle(nullptr, uikit::disabledState);
  EXPECT_EQ(text(button->titleLabel()->text()), "Close");
  EXPECT_EQ(text(objc::send<NSString*, "titleForState:">(button.get(), uikit::disabledState)), "Close");
}

TEST_F(Buttons, UseTheNormalTitleColorForStatesWithoutAColor) {
  const auto button = makeButton();
  button->setTitleColor(UIColor::redColor(), UIControlState::Normal);
  EXPECT_EQ(button->titleLabel()->textColor(), UIColor::redColor());
  button->setEnabled(false);
  EXPECT_EQ(button->titleLabel()->textColor(), UIColor::redColor());
  EXPECT_EQ(alphaOf(button->titleLabel()), 1);
}

TEST_F(Buttons, HaveAWhiteTitleByDefault) {
  EXPECT_EQ(uikit::colorOf(makeButton()->titleLabel()->textColor()), (drawing::Color{1, 1, 1, 1}));
}

TEST_F(Buttons, SystemButtonsFadeWhenDisabledOrHighlighted) {
  UIButton* button = makeSystemButton();
  EXPECT_EQ(uikit::colorOf(button->titleLabel()->textColor()), (drawing::Color{0, 0.478, 1, 1}));
  EXPECT_EQ(button->titleLabel()->font()->pointSize(), 15);
  EXPECT_EQ(alphaOf(button->titleLabel()), 1);
  objc::send<void, "setHighlighted:">(button, true);
  EXPECT_LT(alphaOf(button->titleLabel()), 0.5);
  objc::send<void, "setHighlighted:">(button, false);
  button->setEnabled(false);
  EXPECT_LT(alphaOf(button->titleLabel()), 0.5);
}

TEST_F(Buttons, HaveTheTitlesSizePlusPaddingAsIntrinsicSize) {
  const auto button = makeButton();
  const auto title = objc::send<CGSize, "intrinsicContentSize">(button->titleLabel());
  EXPECT_EQ((objc::send<CGSize, "intrinsicContentSize">(button.get())), (CGSize{title.width, title.height + 12}));
}

TEST_F(Buttons, GrowWithTheirTitleUnderConstraints) {
  const auto window = makeWindow();
  const auto button = makeButton({});
  button->setTranslatesAutoresizingMaskIntoConstraints(false);
  window->addSubview(button);
  button->leadingAnchor()->equalTo(window->leadingAnchor())->activated();
  button->topAnchor()->equalTo(window->topAnchor())->activated();
  window->layoutIfNeeded();
  const double before = button->frame().size.width;
  button->titleLabel()->setFont(UIFont::boldSystemFontOfSize(30));
  window->layoutIfNeeded();
  EXPECT_GT(button->frame().size.width, before + 20);
}

TEST_F(Buttons, ReceiveTapsOnTheirTitle) {
  const auto window = makeWindow();
  const auto button = makeButton();
  const auto target = ControlTarget::make();
  window->addSubview(button);
  button->addTarget(target, objc::selector<"withSender:">(), UIControlEvents::TouchUpInside);
  tap({100, 18});
  EXPECT_EQ(takeLog(), Log{"sender UIButton"});
}

}  // namespace

}  // namespace test
