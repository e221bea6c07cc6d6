// Tests of the drawing of labels: alignment, position and truncation. They check the drawn pixels.
#include "objc/block.hpp"
#include "platform/ui_label.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

constexpr std::uint32_t black = 0xff000000;

class LabelDrawing : public UIKitTest {
 public:
  objc::Ref<UILabel> addLabel(const std::string& text, CGRect frame, NSTextAlignment alignment) const {
    auto label = UIView::withFrame<UILabel>(frame);
    label->setFont(UIFont::systemFontOfSize(15));
    label->setText(string(text));
    label->setTextAlignment(alignment);
    label->setTextColor(UIColor::withRed(1, 1, 1, 1));
    window->addSubview(label);
    return label;
  }

  objc::Ref<UIWindow> window = makeWindow();
};

double left(const CGRect& rect) { return rect.origin.x; }
double right(const CGRect& rect) { return rect.origin.x + rect.size.width; }
double top(const CGRect& rect) { return rect.origin.y; }
double bottom(const CGRect& rect) { return rect.origin.y + rect.size.height; }

TEST_F(LabelDrawing, AlignsHorizontally) {
  auto label = addLabel("HH", {{100, 100}, {200, 18}}, NSTextAlignment::Left);
  EXPECT_NEAR(left(inkBounds(black)), 100, 3);
  label->setTextAlignment(NSTextAlignment::Right);
  EXPECT_NEAR(right(inkBounds(black)), 300, 3);
  label->setTextAlignment(NSTextAlignment::Center);
  const CGRect ink = inkBounds(black);
  EXPECT_NEAR((left(ink) + right(ink)) / 2, 200, 1.5);
}

TEST_F(LabelDrawing, StartsOnTheLeftInLeftToRightLanguages) {
  addLabel("HH", {{100, 100}, {200, 18}}, NSTextAlignment::Natural);
  EXPECT_NEAR(left(inkBounds(black)), 100, 3);
}

TEST_F(LabelDrawing, StartsOnTheRightInRightToLeftLanguages) {
  uikit::Environment environment;
  environment.direction = uikit::LayoutDirection::RightToLeft;
  uikit::setEnvironment(environment);
  addLabel("HH", {{100, 100}, {200, 18}}, NSTextAlignment::Natural);
  EXPECT_NEAR(right(inkBounds(black)), 300, 3);
}

TEST_F(LabelDrawing, IsCenteredVertically) {
  addLabel("HH", {{100, 100}, {200, 100}}, NSTextAlignment::Left);
  const CGRect ink = inkBounds(black);
  EXPECT_NEAR((top(ink) + bottom(ink)) / 2, 150, 1.5);
}

TEST_F(LabelDrawing, StaysInsideWhenTruncated) {
  addLabel(std::string(100, 'W'), {{100, 100}, {80, 18}}, NSTextAlignment::Left);
  const CGRect ink = inkBounds(black);
  EXPECT_GE(left(ink), 100);
  EXPECT_LE(right(ink), 180);
  EXPECT_GT(right(ink), 160);
}

TEST_F(LabelDrawing, OmitsLinesThatDoNotFit) {
  auto label = addLabel("H\nH\nH\nH", {{100, 100}, {80, 40}}, NSTextAlignment::Left);
  label->setNumberOfLines(0);
  EXPECT_LE(inkBounds(black).size.height, 36);
}

TEST_F(LabelDrawing, StaysAtTheTopWhileItsHeightGrows) {
  auto label = addLabel("H", {{100, 100}, {80, 18}}, NSTextAlignment::Left);
  label->setContentMode(UIViewContentMode::Top);
  label->setNumberOfLines(0);
  label->setText("H\nH\nH"_ns);
  UIView::animate(1, objc::block([label] { label->setFrame({{100, 100}, {80, 54}}); }));
  foundation::stepClock(0.5);
  const CGRect during = inkBounds(black);
  foundation::stepClock(1);
  EXPECT_EQ(during, inkBounds(black));
}

TEST_F(LabelDrawing, UsesTheColorsOfItsRuns) {
  auto styled = NSMutableAttributedString::withString("HH"_ns);
  styled->addAttribute("NSColor"_ns, UIColor::withRed(0, 0, 0, 1), {0, 1});
  auto label = addLabel("", {{100, 100}, {80, 18}}, NSTextAlignment::Left);
  label->setAttributedText(styled);
  const CGRect second = inkBounds(black);
  EXPECT_GT(left(second), 108);
  label->setTextColor(UIColor::withRed(1, 1, 1, 1));
  EXPECT_LT(left(inkBounds(black)), 104);
}

}  // namespace

}  // namespace test
