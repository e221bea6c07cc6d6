// Tests of UIVisualEffectView.
#include "platform/ui_visual_effect_view.hpp"

#include "simulator/uikit/rendering/renderer.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

// The screen is black to the left of x = 100, and white to the right.
class VisualEffectView : public UIKitTest {
 public:
  VisualEffectView() {
    auto whiteArea = addView(window, {{100, 0}, {1000, 1000}});
    whiteArea->setBackgroundColor(UIColor::withRed(1, 1, 1, 1));
  }

  objc::Ref<UIVisualEffectView> addEffectView(UIBlurEffectStyle style) const {
    auto effectView = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(style));
    effectView->setFrame({{50, 50}, {100, 100}});
    window->addSubview(effectView);
    return effectView;
  }
  static int brightness(int x, int y) { return static_cast<int>(uikit::renderScreen(1)->pixel(x, y) & 0xff); }

  objc::Ref<UIWindow> window = makeWindow();
};

TEST_F(VisualEffectView, BlursTheContentBehind) {
  EXPECT_EQ(brightness(99, 100), 0);
  EXPECT_EQ(brightness(100, 100), 255);
  addEffectView(UIBlurEffectStyle::Light);
  EXPECT_LT(std::abs(brightness(99, 100) - brightness(100, 100)), 30);
  EXPECT_EQ(brightness(99, 160), 0);
}

TEST_F(VisualEffectView, IsClippedToItsRoundedCorners) {
  auto effectView = addEffectView(UIBlurEffectStyle::Light);
  EXPECT_GT(brightness(51, 51), 0);
  effectView->layer()->setCornerRadius(40);
  effectView->setClipsToBounds(true);
  EXPECT_EQ(brightness(51, 51), 0);
  EXPECT_GT(brightness(100, 55), 0);
}

TEST_F(VisualEffectView, DarkStyleIsDarkerThanLightStyle) {
  auto effectView = addEffectView(UIBlurEffectStyle::Dark);
  const int dark = brightness(140, 100);
  effectView->removeFromSuperview();
  addEffectView(UIBlurEffectStyle::Light);
  EXPECT_GT(brightness(140, 100), dark);
}

TEST_F(VisualEffectView, RegularStyleFollowsTheAppearance) {
  addEffectView(UIBlurEffectStyle::Regular);
  const int light = brightness(140, 100);
  uikit::switchAppearance(UIUserInterfaceStyle::Dark);
  EXPECT_LT(brightness(140, 100), light);
}

TEST_F(VisualEffectView, OpacityBlendsWithTheUnblurredContent) {
  auto effectView = addEffectView(UIBlurEffectStyle::Dark);
  const int opaque = brightness(140, 100);
  effectView->setAlpha(0.5);
  EXPECT_NEAR(brightness(140, 100), (opaque + 255) / 2.0, 6);
  effectView->setAlpha(0);
  EXPECT_EQ(brightness(140, 100), 255);
}

TEST_F(VisualEffectView, BlursNothingWithoutAnEffect) {
  auto effectView = addEffectView(UIBlurEffectStyle::Light);
  objc::send<void, "setEffect:">(effectView.get(), static_cast<UIBlurEffect*>(nullptr));
  EXPECT_EQ(brightness(99, 100), 0);
  EXPECT_FALSE(describe(effectView).contains("blur"));
}

TEST_F(VisualEffectView, ContentViewHasItsSize) {
  auto effectView = addEffectView(UIBlurEffectStyle::Light);
  UIView* content = objc::send<UIView*, "contentView">(effectView.get());
  EXPECT_EQ(content->superview(), effectView.get());
  EXPECT_EQ(content, (objc::send<UIView*, "contentView">(effectView.get())));
  effectView->setFrame({{0, 0}, {70, 80}});
  EXPECT_EQ(content->frame(), (CGRect{{0, 0}, {70, 80}}));
}

TEST_F(VisualEffectView, DescriptionContainsItsStyle) {
  EXPECT_EQ(describe(addEffectView(UIBlurEffectStyle::Regular)).at("blur"), 4);
  EXPECT_EQ(describe(addEffectView(UIBlurEffectStyle::Dark)).at("blur"), 2);
}

}  // namespace

}  // namespace test
